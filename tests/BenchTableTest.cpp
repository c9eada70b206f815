// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/FigureTable.h"
#include "benchmarks/MeasuredFigure.h"

#include <gtest/gtest.h>

namespace velmora::bench {

namespace {

QByteArray line(const char *kind, double goal, const char *rest) {
    return QByteArray(R"({"row":"r","figure":"f","against":"a","unit":"ms","kind":")") + kind +
           R"(","goal":)" + QByteArray::number(goal) + rest + '}';
}

} // namespace

TEST(BenchTableTest, ComparesWithTheGoalWhatTheKindSays) {
    const char *measured = R"(,"values":[9,1,2,4],"reference":[2,1,8])";
    const struct {
        const char *kind;
        double result;
    } cases[] = {{"absolute", 3}, {"max", 9}, {"exact", 9}, {"ratio", 1.5}, {"difference", 1}};
    for (const auto &[kind, result] : cases) {
        const auto met = MeasuredFigure::fromLine(line(kind, result, measured));
        const auto missed = MeasuredFigure::fromLine(line(kind, result - 0.1, measured));
        ASSERT_TRUE(met && missed) << kind;
        EXPECT_DOUBLE_EQ(met->result(), result) << kind;
        EXPECT_TRUE(met->isMet()) << kind;
        EXPECT_FALSE(missed->isMet()) << kind;
    }
}

TEST(BenchTableTest, OnlyWholeFiguresAreTaken) {
    for (const QByteArray &refused :
         {QByteArray("progress: 3 of 5"), line("best", 1, R"(,"values":[1])"),
          line("absolute", 1, R"(,"values":[])"), line("ratio", 1, R"(,"values":[1])"),
          line("absolute", 1, R"(,"values":[1],"missing":"why")")})
        EXPECT_FALSE(MeasuredFigure::fromLine(refused)) << refused.constData();
}

TEST(BenchTableTest, SaysWhenAnotherRunMayComeToTheOtherVerdict) {
    const struct {
        const char *values;
        double goal;
        const char *verdict;
    } cases[] = {{"89", 100, " met"},
                 {"90", 100, "just met"},
                 {"110", 100, "just MISSED"},
                 {"111", 100, " MISSED"},
                 {"0", 0, " met"}};
    for (const auto &[values, goal, verdict] : cases) {
        FigureTable table;
        const QByteArray rest = QByteArray(R"(,"values":[)") + values + ']';
        table.add(*MeasuredFigure::fromLine(line("absolute", goal, rest.constData())));
        const QString text = table.toText().trimmed();
        EXPECT_TRUE(text.endsWith(QLatin1String(verdict))) << text.toStdString();
    }
}

TEST(BenchTableTest, ShowsWhatIsMissedAndWhatIsMissing) {
    FigureTable table;
    table.add(*MeasuredFigure::fromLine(line("absolute", 2, R"(,"values":[3])")));
    table.add(*MeasuredFigure::fromLine(line("ratio", 2, R"(,"missing":"no such display")")));
    for (const QString &shown : {table.toText(), table.toMarkdown()}) {
        EXPECT_EQ(shown.count(QStringLiteral("MISSED")), 1);
        EXPECT_TRUE(shown.contains(QStringLiteral("no such display")));
    }
    EXPECT_TRUE(table.hasRow(QStringLiteral("r")));
    EXPECT_FALSE(table.hasRow(QStringLiteral("f")));
}

} // namespace velmora::bench
