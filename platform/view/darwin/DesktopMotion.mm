// SPDX-License-Identifier: Apache-2.0
#include "DesktopMotion.h"

#include <AppKit/AppKit.h>

namespace velmora {

namespace {

class WorkspaceMotion final : public DesktopMotion {
public:
    WorkspaceMotion() : m_isReduced(ask()) {
        // Without a queue the block runs on the thread that posts, which is the main one.
        m_observer = [center() addObserverForName:ChangeName
                                           object:nil
                                            queue:nil
                                       usingBlock:^(NSNotification *) {
                                         update();
                                       }];
        // Kept also where the compiler does not count references.
        CFRetain((__bridge CFTypeRef)m_observer);
    }

    ~WorkspaceMotion() override {
        [center() removeObserver:m_observer];
        CFRelease((__bridge CFTypeRef)m_observer);
    }

    bool isReduced() const override { return m_isReduced; }

private:
    static NSNotificationCenter *center() {
        return [[NSWorkspace sharedWorkspace] notificationCenter];
    }

    static bool ask() {
        return [[NSWorkspace sharedWorkspace] accessibilityDisplayShouldReduceMotion];
    }

    void update() {
        if (ask() == m_isReduced)
            return;
        m_isReduced = !m_isReduced;
        Q_EMIT changed();
    }

    static inline NSNotificationName const ChangeName =
        NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification;

    bool m_isReduced;
    id m_observer;
};

} // namespace

std::unique_ptr<DesktopMotion> DesktopMotion::watch() {
    return std::make_unique<WorkspaceMotion>();
}

} // namespace velmora
