// SPDX-License-Identifier: Apache-2.0
#include "Elements.h"
#include "Hosts.h"

namespace gallery {

namespace {

// Windows side by side in rows of four, where the window manager follows.
void openWindows(Gallery &gallery, int count) {
    constexpr int Columns = 4;
    constexpr QSize Size(360, 420);
    constexpr QSize Step(390, 500);
    for (int i = 0; i < count; ++i) {
        auto *window = marked(new QWidget, Size);
        fill(window, makeForm());
        gallery.add(window);
        window->move(i % Columns * Step.width() + 10, i / Columns * Step.height() + 40);
        window->show();
    }
}

void openTwo(Gallery &gallery) {
    openWindows(gallery, 2);
}

void openEight(Gallery &gallery) {
    openWindows(gallery, 8);
}

} // namespace

Hosts severalWindowsHosts() {
    return {{"TwoWindows", openTwo}, {"EightWindows", openEight}};
}

} // namespace gallery
