// SPDX-License-Identifier: Apache-2.0
#include "InterfaceLoader.h"

#include "InterfaceReader.h"
#include "Log.h"

#include <QtCore/QFile>
#include <QtCore/QHash>

namespace velmora {

namespace {

// Not in ProcessRoot: the framework registers the same classes whenever it needs them, so a fresh
// process state would not differ.
QHash<QString, std::function<QWidget *(QWidget *)>> &factories() {
    static QHash<QString, std::function<QWidget *(QWidget *)>> known;
    return known;
}

QWidget *makeWidget(const QString &className, QWidget *parent) {
    const auto factory = factories().value(className);
    if (!factory)
        Log::write(QStringLiteral("interface resource: unknown class %1").arg(className));
    return factory ? factory(parent) : nullptr;
}

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
    InterfaceReader reader(file, &makeWidget);
    std::unique_ptr<QWidget> root = reader.read();
    if (!root)
        Log::write(QStringLiteral("interface resource %1: %2").arg(name, reader.error()));
    return root.release();
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
