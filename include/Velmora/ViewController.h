// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Export.h>

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include <memory>
#include <vector>

namespace velmora {

/// Controls one view (a QWidget). A host makes one for a view of its own, to tell where a banner is
/// to be shown. The framework's own controllers make their views when they are first needed. Main
/// thread only.
///
/// The controller never owns the view. Its parent widget does, as usual in Qt: when the host
/// destroys a window, the views in it are destroyed, and view() is null from then on.
class VELMORA_EXPORT ViewController {
public:
    /// Makes a controller for a view of the host's.
    explicit ViewController(QWidget *view);
    virtual ~ViewController();
    ViewController(const ViewController &) = delete;
    ViewController &operator=(const ViewController &) = delete;

    /// The view, which is made now if this is the first call; null when it has been destroyed.
    QWidget *view();

    /// The view if it has been made and still exists, otherwise null.
    QWidget *viewIfLoaded() const { return m_view; }

    /// The window that the view is in; null when it is in none. Makes the view if necessary.
    QWidget *viewWindow();

    /// Makes this the controller of a window's content. Banners of the window are then added to
    /// this controller's view, and their controllers become its children. Lasts until the
    /// controller or the window is destroyed.
    /// @param window a top-level widget, or any widget in it
    void setContentOf(QWidget *window);

    /// Expires when the controller is destroyed.
    std::weak_ptr<void> lifetime() const { return m_lifetime; }

    /// Adds a child controller, and removes it from an earlier parent. Children are not owned, and
    /// their views are not moved.
    void addChildViewController(ViewController *child);
    /// Removes this from its parent controller. Ignored without one.
    void removeFromParentViewController();
    /// Null when there is none.
    ViewController *parentViewController() const { return m_parent; }
    /// In the order in which they were added.
    const std::vector<ViewController *> &childViewControllers() const { return m_children; }

protected:
    /// For a controller that makes its view in loadView().
    ViewController();
    /// Makes the view. Called once, by the first call of view().
    virtual QWidget *loadView() { return nullptr; }
    /// Called once, after loadView() has returned a view.
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
