// SPDX-License-Identifier: Apache-2.0
#include "Elements.h"
#include "Hosts.h"

#include <QtGui/QOpenGLContext>
#include <QtGui/QOpenGLFunctions>
#include <QtGui/QRasterWindow>
#include <QtOpenGL/QOpenGLWindow>
#include <QtOpenGLWidgets/QOpenGLWidget>

namespace gallery {

namespace {

template<class Base>
class FilledWithGL : public Clicked<Base> {
    void paintGL() override {
        QOpenGLFunctions *gl = QOpenGLContext::currentContext()->functions();
        gl->glClearColor(Marker.redF(), Marker.greenF(), Marker.blueF(), 1);
        gl->glClear(GL_COLOR_BUFFER_BIT);
    }
};

QWidget *makeWindow(QWidget *content) {
    auto *window = marked(new QWidget);
    content->setObjectName(QStringLiteral("target"));
    fill(window, content);
    return window;
}

template<class Window>
QWidget *contained() {
    return QWidget::createWindowContainer(new Window);
}

QWidget *nativeChild() {
    auto *child = new Filled<QWidget>;
    child->setAttribute(Qt::WA_NativeWindow);
    return child;
}

QWidget *lonelyNativeChild() {
    auto *child = new Filled<QWidget>;
    child->setAttribute(Qt::WA_DontCreateNativeAncestors);
    child->setAttribute(Qt::WA_NativeWindow);
    return child;
}

template<QWidget *(*makeContent)()>
void open(Gallery &gallery) {
    QWidget *window = makeWindow(makeContent());
    gallery.add(window);
    window->show();
}

template<QWidget *(*makeContent)()>
void openGameEngine(Gallery &gallery) {
    QWidget *window = makeWindow(makeContent());
    gallery.addGameEngine(window);
    window->show();
}

QWidget *openGLWidget() {
    return new FilledWithGL<QOpenGLWidget>;
}

constexpr auto rasterWindow = contained<Filled<QRasterWindow>>;
constexpr auto openGLWindow = contained<FilledWithGL<QOpenGLWindow>>;

} // namespace

Hosts nativeHosts() {
    return {{"OpenGLWidget", open<openGLWidget>},
            {"NativeChild", open<nativeChild>},
            {"NativeChildOfAlienParents", open<lonelyNativeChild>},
            {"RasterWindowContainer", open<rasterWindow>},
            {"OpenGLWindowContainer", open<openGLWindow>},
            {"GameEngineRaster", openGameEngine<rasterWindow>},
            {"GameEngineOpenGL", openGameEngine<openGLWindow>}};
}

} // namespace gallery
