// SPDX-License-Identifier: Apache-2.0
#include "tests/support/FreshProcess.h"
#include <Velmora/NotificationCenter.h>

#include <optional>

namespace velmora::test {

using Observation = NotificationCenter::Observation;

class NotificationCenterTest : public FreshProcess {
protected:
    NotificationCenter &center = NotificationCenter::defaultCenter();
    QStringList heard;

    [[nodiscard]] Observation listen(const QString &who, const QVariant &object = {}) {
        return center.addObserver(QStringLiteral("news"), object,
                                  [this, who](const Notification &n) {
                                      heard.append(who + QLatin1Char(':') + n.object.toString());
                                  });
    }
};

TEST_F(NotificationCenterTest, DeliversByNameAndObjectInOrderOfRegistration) {
    const Observation all = listen(QStringLiteral("all"));
    const Observation some = listen(QStringLiteral("some"), QStringLiteral("a"));
    center.post(QStringLiteral("other"), QStringLiteral("a"));
    center.post(QStringLiteral("news"), QStringLiteral("a"));
    center.post(QStringLiteral("news"), QStringLiteral("b"));
    EXPECT_EQ(heard, (QStringList{QStringLiteral("all:a"), QStringLiteral("some:a"),
                                  QStringLiteral("all:b")}));
}

TEST_F(NotificationCenterTest, HandlersMayRemoveEachOtherAndRegisterNewOnes) {
    std::optional<Observation> victim;
    std::vector<Observation> late;
    const Observation remover =
        center.addObserver(QStringLiteral("news"), [&](const Notification &) {
            victim.reset();
            late.push_back(listen(QStringLiteral("late")));
        });
    victim = listen(QStringLiteral("victim"));
    center.post(QStringLiteral("news"));
    EXPECT_TRUE(heard.isEmpty());
    center.post(QStringLiteral("news"));
    EXPECT_EQ(heard, QStringList{QStringLiteral("late:")});
}

TEST_F(NotificationCenterTest, AnObserverMayRemoveItselfWhileItRuns) {
    std::optional<Observation> self;
    int calls = 0;
    auto counter = std::make_shared<int>(0);
    self = center.addObserver(QStringLiteral("news"), [&, counter](const Notification &) {
        self.reset();
        ++*counter;
        ++calls;
        // A notification that a handler posts reaches only the observers that are still registered.
        center.post(QStringLiteral("news"));
    });
    QObject context;
    int signalled = 0;
    QObject::connect(&center, &NotificationCenter::posted, &context, [&] { ++signalled; });
    center.post(QStringLiteral("news"));
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(signalled, 2);
    EXPECT_EQ(counter.use_count(), 1);
}

} // namespace velmora::test
