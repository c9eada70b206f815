// SPDX-License-Identifier: Apache-2.0
// A mouse for a Wayland compositor without input devices. It exists as long as the program, and
// clicks at each point that comes as a line "X Y WIDTH HEIGHT" on standard input, where the last
// two are the screen's size; then it prints "clicked". It speaks the protocol wlr-virtual-pointer.
#include <wayland-client.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace {

constexpr const char *ManagerName = "zwlr_virtual_pointer_manager_v1";
constexpr std::uint32_t LeftButton = 0x110; // BTN_LEFT

// The requests of the protocol by number. Those that are not used only keep the numbers right.
enum PointerRequest : std::uint32_t { Motion, MotionAbsolute, Button, Axis, Frame };

// None of the arguments of these requests is an object.
const std::array<const wl_interface *, 5> s_noTypes{};
const std::array<wl_message, 5> s_pointerRequests{
    {{"motion", "uff", const_cast<const wl_interface **>(s_noTypes.data())},
     {"motion_absolute", "uuuuu", const_cast<const wl_interface **>(s_noTypes.data())},
     {"button", "uuu", const_cast<const wl_interface **>(s_noTypes.data())},
     {"axis", "uuf", const_cast<const wl_interface **>(s_noTypes.data())},
     {"frame", "", const_cast<const wl_interface **>(s_noTypes.data())}}};
const wl_interface s_pointer{"zwlr_virtual_pointer_v1", 1, s_pointerRequests.size(),
                             s_pointerRequests.data(),  0, nullptr};

std::array<const wl_interface *, 2> s_creationTypes{&wl_seat_interface, &s_pointer};
const std::array<wl_message, 1> s_managerRequests{
    {{"create_virtual_pointer", "?on", s_creationTypes.data()}}};
const wl_interface s_manager{ManagerName, 1, s_managerRequests.size(), s_managerRequests.data(), 0,
                             nullptr};

wl_proxy *s_boundManager = nullptr;

void bindManager(void *, wl_registry *registry, std::uint32_t name, const char *interface,
                 std::uint32_t) {
    if (std::strcmp(interface, ManagerName) == 0)
        s_boundManager = static_cast<wl_proxy *>(wl_registry_bind(registry, name, &s_manager, 1));
}

void ignoreRemoval(void *, wl_registry *, std::uint32_t) {}

constexpr wl_registry_listener Listener{bindManager, ignoreRemoval};

class VirtualPointer {
public:
    VirtualPointer(wl_display *display, wl_proxy *manager)
        : m_display(display),
          m_pointer(wl_proxy_marshal_constructor(manager, 0, &s_pointer, nullptr, nullptr)) {}

    void click(std::uint32_t x, std::uint32_t y, std::uint32_t width, std::uint32_t height) {
        send(MotionAbsolute, x, y, width, height);
        send(Button, LeftButton, 1U);
        send(Button, LeftButton, 0U);
    }

private:
    // As one event of the mouse; the first argument of a request is its time.
    template<class... Arguments>
    void send(PointerRequest request, Arguments... arguments) {
        wl_proxy_marshal(m_pointer, request, m_time += 20, arguments...);
        wl_proxy_marshal(m_pointer, Frame);
        wl_display_roundtrip(m_display);
    }

    wl_display *m_display;
    wl_proxy *m_pointer;
    std::uint32_t m_time = 0;
};

} // namespace

int main() {
    wl_display *display = wl_display_connect(nullptr);
    if (!display)
        return 1;
    wl_registry_add_listener(wl_display_get_registry(display), &Listener, nullptr);
    wl_display_roundtrip(display);
    if (!s_boundManager)
        return 1;
    VirtualPointer pointer(display, s_boundManager);
    wl_display_roundtrip(display);
    std::puts("ready");
    std::fflush(stdout);
    unsigned x = 0;
    unsigned y = 0;
    unsigned width = 0;
    unsigned height = 0;
    while (std::scanf("%u %u %u %u", &x, &y, &width, &height) == 4) {
        pointer.click(x, y, width, height);
        std::puts("clicked");
        std::fflush(stdout);
    }
    wl_display_disconnect(display);
    return 0;
}
