// SPDX-License-Identifier: Apache-2.0
#include "InterfaceLoader.h"

#include "Log.h"
#include "ProcessRoot.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QHash>
#include <QtUiTools/QUiLoader>

namespace velmora {

namespace {

// Not in ProcessRoot: the framework registers the same classes whenever it needs them, so a fresh
// process state would not differ.
QHash<QString, std::function<QWidget *(QWidget *)>> &factories() {
    static QHash<QString, std::function<QWidget *(QWidget *)>> known;
    return known;
}

class Loader : public QUiLoader {
public:
    QWidget *createWidget(const QString &className, QWidget *parent, const QString &name) override {
        const auto factory = factories().value(className);
        QWidget *widget =
            factory ? factory(parent) : QUiLoader::createWidget(className, parent, name);
        if (!widget)
            Log::write(QStringLiteral("interface resource: unknown class %1").arg(className));
        else
            widget->setObjectName(name);
        return widget;
    }
};

// The process's loader. The constructor of QUiLoader loads all Designer plugins in the library
// paths, with all libraries that they link, into the host. So the paths are empty meanwhile. The
// paths belong to the whole process, so the loader is made once only.
struct LoaderWithoutPlugins {
    LoaderWithoutPlugins() {
        const QStringList paths = QCoreApplication::libraryPaths();
        QCoreApplication::setLibraryPaths({});
        loader = std::make_unique<Loader>();
        QCoreApplication::setLibraryPaths(paths);
    }
    std::unique_ptr<Loader> loader;
};

} // namespace

void InterfaceLoader::registerFactory(const QString &name, const Factory &factory) {
    factories().insert(name, factory);
}

QWidget *InterfaceLoader::load(const QString &name) {
    QFile file(QStringLiteral(":/velmora/interface/%1.ui").arg(name));
    if (!file.open(QIODevice::ReadOnly)) {
        Log::write(QStringLiteral("interface resource %1 is missing").arg(name));
        return nullptr;
    }
    const auto &loader = ProcessRoot::get<LoaderWithoutPlugins>().loader;
    QWidget *root = loader->load(&file);
    if (!root)
        Log::write(QStringLiteral("interface resource %1: %2").arg(name, loader->errorString()));
    return root;
}

LayoutConstraintPtr InterfaceLoader::constraint(QWidget *root, const QString &name,
                                                LayoutConstraint::Relation relation) {
    const QVariant constant = root->property(name.toUtf8().constData());
    if (!constant.isValid())
        missing(root, name);
    return std::make_shared<LayoutConstraint>(relation, 1, constant.toDouble());
}

void InterfaceLoader::missing(const QWidget *root, const QString &name) {
    Log::write(QStringLiteral("interface resource %1 has no %2").arg(root->objectName(), name));
}

} // namespace velmora
