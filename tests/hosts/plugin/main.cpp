// SPDX-License-Identifier: Apache-2.0
// A host that does not link Velmora: it loads a plugin that does, has it advertise, unloads it, and
// ends some time later. Arguments: PLUGIN STATE MILLISECONDS-FROM-STATE-TO-UNLOADING WAY-TO-END
#include "PluginHost.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int LongestUnloadMs = 200;
constexpr int AfterUnloadMs = 400;

void *s_plugin = nullptr;
const char *s_pluginPath = nullptr;
QByteArray s_wayToEnd;
int s_delayMs = 0;

[[noreturn]] void fail(const char *what) {
    std::fprintf(stderr, "plugin host: %s\n", what);
    std::_Exit(1);
}

void end() {
    std::puts("The child's part is done.");
    std::fflush(stdout);
    if (s_wayToEnd == "exit")
        std::exit(0);
    QCoreApplication::quit();
}

void unload() {
    QElapsedTimer clock;
    clock.start();
    dlclose(s_plugin);
    if (clock.elapsed() > LongestUnloadMs)
        fail("unloading took too long");
    if (dlopen(s_pluginPath, RTLD_LAZY | RTLD_NOLOAD))
        fail("the plugin is still loaded");
    // The window is still shown, with what the plugin put into it.
    QTimer::singleShot(AfterUnloadMs, &end);
}

} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    if (argc != 5)
        fail("wrong arguments");
    s_pluginPath = argv[1];
    s_delayMs = QByteArray(argv[3]).toInt();
    s_wayToEnd = argv[4];
    s_plugin = dlopen(s_pluginPath, RTLD_NOW | RTLD_LOCAL);
    if (!s_plugin)
        fail(dlerror());
    const auto begin = reinterpret_cast<BeginAdvertising>(dlsym(s_plugin, "beginAdvertising"));
    if (!begin)
        fail("the plugin has no function");

    QWidget window;
    window.resize(900, 400);
    window.show();
    window.activateWindow();
    // Not inside the plugin's function.
    QTimer::singleShot(
        0, [&] { begin(&window, argv[2], [] { QTimer::singleShot(s_delayMs, &unload); }); });
    return QApplication::exec();
}
