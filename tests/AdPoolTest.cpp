// SPDX-License-Identifier: Apache-2.0
#include "AdPool.h"
#include "AdKeys.h"
#include "tests/support/TestRandom.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>

namespace velmora::test {

namespace {

const QString Weight = QStringLiteral("priority");
const QString Name = QStringLiteral("name");

QJsonObject ad(const char *name, const QJsonValue &weight = QJsonValue::Undefined) {
    QJsonObject object{{Name, QLatin1String(name)}};
    if (!weight.isUndefined())
        object.insert(Weight, weight);
    return object;
}

std::string nameOf(const std::optional<QJsonObject> &ad) {
    return ad ? ad->value(Name).toString().toStdString() : "nothing";
}

std::string drawn(const QJsonArray &ads, const QJsonObject &excluded = {}) {
    AdPool pool(kMainBannerKey);
    pool.addPlacement(ads);
    return nameOf(pool.draw(excluded));
}

} // namespace

TEST(AdPoolTest, FrequenciesFollowTheWeights) {
    SeededRandom random(20);
    const QJsonArray ads{ad("a", 1), ad("b", QStringLiteral("2")), ad("c", 3), ad("never", 0)};
    constexpr int Draws = 60'000;
    AdPool pool(kMainBannerKey);
    pool.addPlacement(ads);
    std::map<std::string, int> counts;
    for (int i = 0; i < Draws; ++i)
        ++counts[nameOf(pool.draw())];
    for (const auto &[name, share] : {std::pair{"a", 1 / 6.0}, {"b", 2 / 6.0}, {"c", 3 / 6.0}}) {
        // Five standard deviations: a correct draw exceeds them with about one seed in a million.
        const double allowed = 5 * std::sqrt(Draws * share * (1 - share));
        EXPECT_NEAR(counts[name], Draws * share, allowed) << name;
    }
    EXPECT_EQ(counts.count("never"), 0u);
    EXPECT_EQ(counts.count("nothing"), 0u);
}

TEST(AdPoolTest, IntervalsAreHalfOpenInOrder) {
    const QJsonArray ads{ad("a", 2), ad("zero", 0), ad("b", 3)};
    const char *expected[] = {"a", "a", "b", "b", "b", "a"};
    for (quint32 number = 0; number < 6; ++number) {
        FixedRandom random(number);
        EXPECT_EQ(drawn(ads), expected[number]) << number;
    }
    FixedRandom largest(0xffffffffu);
    EXPECT_EQ(drawn(ads), expected[0xffffffffu % 5]);
}

TEST(AdPoolTest, TheExcludedAdIsDrawnOnlyWhenItIsTheOnlyOne) {
    FixedRandom random(0);
    const QJsonObject current = ad("a", 1);
    EXPECT_EQ(drawn({current, ad("b", 1)}, current), "b");
    EXPECT_EQ(drawn({current, current, ad("b", 1)}, current), "b");
    EXPECT_EQ(drawn({current}, current), "a");
    EXPECT_EQ(drawn({current, ad("b", 1)}, ad("a", 2)), "a");
    // With several copies of it and no other ad, nothing is drawn.
    EXPECT_EQ(drawn({current, current}, current), "nothing");
}

TEST(AdPoolTest, WeightsPairWithAdsByPosition) {
    FixedRandom random(4);
    EXPECT_EQ(drawn({ad("unweighted"), ad("five", 5)}), "unweighted");
    EXPECT_EQ(drawn({ad("null", QJsonValue::Null), ad("five", 5)}), "null");
    random.set(5);
    EXPECT_EQ(drawn({ad("a", 3), ad("unweighted"), ad("c", 4)}), "unweighted");
}

TEST(AdPoolTest, FractionsRoundHalfAwayFromZero) {
    // 0.5 + 0.5 = 1 in total, and the first interval is 1 long already.
    FixedRandom random(0);
    EXPECT_EQ(drawn({ad("a", 0.5), ad("b", 0.5)}), "a");
    // 2.5 + 2.5 = 5 in total, but each interval is 3 long.
    for (quint32 number = 0; number < 5; ++number) {
        random.set(number);
        EXPECT_EQ(drawn({ad("a", 2.5), ad("b", 2.5)}), number < 3 ? "a" : "b") << number;
    }
    // 3 x 1.4 = 4.2 is 4 in total, but the intervals of length 1 end at 3.
    random.set(3);
    EXPECT_EQ(drawn({ad("a", 1.4), ad("b", 1.4), ad("c", 1.4)}), "nothing");
}

TEST(AdPoolTest, ATotalOfZeroOrLessDrawsNothing) {
    FixedRandom random(7);
    for (const QJsonArray &ads :
         {QJsonArray{}, QJsonArray{ad("a")}, QJsonArray{ad("a", 0), ad("b", 0)},
          QJsonArray{ad("a", 0.2), ad("b", 0.2)}, QJsonArray{ad("a", -3), ad("b", 1)},
          QJsonArray{ad("a", QStringLiteral("heavy"))}, QJsonArray{ad("a", QStringLiteral("inf"))},
          QJsonArray{ad("a", QStringLiteral("nan"))}})
        EXPECT_EQ(drawn(ads), "nothing");
    // A negative weight moves the later intervals down: [0,-2), [-2,3) of a total of 3.
    EXPECT_EQ(drawn({ad("a", -2), ad("b", 5)}), "b");
    // Weights far beyond any integer.
    EXPECT_EQ(drawn({ad("a", 1e300), ad("b", 1e300)}), "a");
    QJsonArray many;
    for (int i = 0; i < 20'000; ++i)
        many.append(ad("sunk", -1e15));
    many.append(ad("huge", 3e19));
    EXPECT_EQ(drawn(many), "nothing");
}

} // namespace velmora::test
