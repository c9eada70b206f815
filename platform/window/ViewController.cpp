// SPDX-License-Identifier: Apache-2.0
#include <Velmora/ViewController.h>

#include "Window.h"

#include <utility>

namespace velmora {

ViewController::ViewController() = default;

ViewController::ViewController(QWidget *view) : m_view(view), m_loaded(true) {}

ViewController::~ViewController() {
    if (auto *window = qobject_cast<Window *>(m_contentOf))
        window->setContentViewController(nullptr);
    removeFromParentViewController();
    for (ViewController *child : m_children)
        child->m_parent = nullptr;
}

QWidget *ViewController::view() {
    if (!m_loaded) {
        m_loaded = true;
        m_view = loadView();
        if (m_view)
            viewDidLoad();
    }
    return m_view;
}

QWidget *ViewController::viewWindow() {
    QWidget *own = view();
    return own && own->window()->isWindow() ? own->window() : nullptr;
}

void ViewController::setContentOf(QWidget *window) {
    Window *companion = Window::of(window);
    m_contentOf = companion;
    if (companion)
        companion->setContentViewController(this);
}

void ViewController::addChildViewController(ViewController *child) {
    child->removeFromParentViewController();
    child->m_parent = this;
    m_children.push_back(child);
}

void ViewController::removeFromParentViewController() {
    if (ViewController *parent = std::exchange(m_parent, nullptr))
        std::erase(parent->m_children, this);
}

} // namespace velmora
