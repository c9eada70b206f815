// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Export.h>

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include <memory>
#include <vector>

namespace velmora {

/// Controls one view (a QWidget). A host wraps a view of its own to say where a banner goes;
/// the framework's controllers load theirs on first use. Main thread only.
///
/// The view belongs to its parent widget, or to nobody, never to the controller: when the host
/// destroys a window, the views in it go too, and view() is null from then on.
class VELMORA_EXPORT ViewController {
public:
    /// A controller for a view of the host's; the controller does not own it.
    explicit ViewController(QWidget *view);
    virtual ~ViewController();
    ViewController(const ViewController &) = delete;
    ViewController &operator=(const ViewController &) = delete;

    /// The view, loaded now if it has not been yet; null once it has been destroyed.
    QWidget *view();

    /// The view when it has been loaded and still exists, else null; loads nothing.
    QWidget *viewIfLoaded() const { return m_view; }

    /// The window that the view lies in; null when it lies in none.
    QWidget *viewWindow();

    /// Makes this the controller of a window's content: banners of the window then become
    /// children of this controller and lie in its view. Ends with the controller or the window.
    void setContentOf(QWidget *window);

    /// Expires with the controller.
    std::weak_ptr<void> lifetime() const { return m_lifetime; }

    void addChildViewController(ViewController *child);
    void removeFromParentViewController();
    ViewController *parentViewController() const { return m_parent; }
    const std::vector<ViewController *> &childViewControllers() const { return m_children; }

protected:
    ViewController();
    /// Makes the view; called once, by the first view().
    virtual QWidget *loadView() { return nullptr; }
    /// Called once, right after loadView() gave a view.
    virtual void viewDidLoad() {}

private:
    QPointer<QWidget> m_view;
    QPointer<QObject> m_contentOf;
    std::shared_ptr<int> m_lifetime = std::make_shared<int>();
    bool m_loaded = false;
    ViewController *m_parent = nullptr;
    std::vector<ViewController *> m_children;
};

} // namespace velmora
