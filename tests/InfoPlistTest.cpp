// SPDX-License-Identifier: Apache-2.0
#include "InfoPlistReader.h"

#include <QtCore/QDateTime>
#include <QtCore/QElapsedTimer>

#include <gtest/gtest.h>

using velmora::InfoPlistReader;

namespace {

QByteArray xml(const QByteArray &content, const QByteArray &subset = {}) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\"" +
           subset + ">\n<plist version=\"1.0\">" + content + "</plist>\n";
}

QByteArray nested(int levels) {
    return xml("<dict><key>a</key>" + QByteArray("<array>").repeated(levels) +
               QByteArray("</array>").repeated(levels) + "</dict>");
}

const QByteArray everyType =
    xml("<dict><!-- </dict> in a comment -->"
        "<key>MetrivoAppId</key><string>mac.123456.mac-store</string>"
        "<key>escaped</key><string>a &lt;b&gt; &amp; \xd0\xb6 &#x436; <![CDATA[<c>]]></string>"
        "<key>empty</key><string/>"
        "<key>yes</key><true/><key>no</key><false/>"
        "<key>negative</key><integer>-42</integer><key>hex</key><integer>0x10</integer>"
        "<key>largest</key><integer>9223372036854775807</integer>"
        "<key>real</key><real>2.5</real>"
        "<key>date</key><date>2024-02-29T12:34:56Z</date>"
        "<key>data</key><data>\n\tAAEC\n\tAwQ=\n</data>"
        "<key>list</key><array><string>x</string><array/><dict><key>k</key><integer>1</integer>"
        "</dict></array></dict>");

} // namespace

TEST(InfoPlist, ReadsEveryType) {
    const QVariantMap expected = {
        {QStringLiteral("MetrivoAppId"), QStringLiteral("mac.123456.mac-store")},
        {QStringLiteral("escaped"), QStringLiteral("a <b> & \u0436 \u0436 <c>")},
        {QStringLiteral("empty"), QString()},
        {QStringLiteral("yes"), true},
        {QStringLiteral("no"), false},
        {QStringLiteral("negative"), -42LL},
        {QStringLiteral("hex"), 16LL},
        {QStringLiteral("largest"), 9223372036854775807LL},
        {QStringLiteral("real"), 2.5},
        {QStringLiteral("date"), QDateTime(QDate(2024, 2, 29), QTime(12, 34, 56), Qt::UTC)},
        {QStringLiteral("data"), QByteArray("\0\1\2\3\4", 5)},
        {QStringLiteral("list"), QVariantList{QStringLiteral("x"), QVariantList(),
                                              QVariantMap{{QStringLiteral("k"), 1LL}}}},
    };
    QString error = QStringLiteral("of an earlier call");
    const QVariantMap values = InfoPlistReader::read(everyType, &error);
    EXPECT_TRUE(error.isEmpty()) << qPrintable(error);
    EXPECT_EQ(values.keys(), expected.keys());
    for (const QString &key : expected.keys()) {
        EXPECT_EQ(values.value(key), expected.value(key)) << qPrintable(key);
        EXPECT_EQ(values.value(key).typeId(), expected.value(key).typeId()) << qPrintable(key);
    }
    EXPECT_EQ(InfoPlistReader::read(nested(64), &error).size(), 1) << qPrintable(error);
}

// A refused list gives no values at all. The reason shows which check has refused it.
TEST(InfoPlist, RefusesDamagedAndHostileLists) {
    const QByteArray big(4000, 'x');
    const struct {
        QByteArray bytes;
        const char *reason;
    } rows[] = {
        {{}, "line 1: Premature end"},
        {"MetrivoAppId = mac.123456.mac-store", "line 1: Start tag"},
        {"bplist00\xd1\x01\x02", "plutil"},
        {xml("<array/>"), "no dictionary"},
        {xml("<string>x</string>"), "no dictionary"},
        {"<html><dict/></html>", "no dictionary"},
        {xml("<dict/><dict/>"), "more than one"},
        {xml("<dict><string>x</string></dict>"), "without a key"},
        {xml("<dict><key>k</key></dict>"), "without a value"},
        {xml("<dict><key>k</key><key>l</key><true/></dict>"), "is no value"},
        {xml("<dict><key>k</key><integer>many</integer></dict>"), "is no value"},
        {xml("<dict><key>k</key><date>today</date></dict>"), "is no value"},
        {xml("<dict><key>k</key><string>a<b/></string></dict>"), "line 3"},
        {xml("<dict><key>k</array></dict>"), "line 3"},
        {xml("<dict><key>a&#0;</key><true/></dict>"), "line 3"},
        {xml(QByteArray("<dict><key>a\0b</key><true/></dict>", 35)), "line 3"},
        {xml("<dict/>") + QByteArray(256 * 1024, ' '), "larger"},
        {nested(65), "deeper"},
        {nested(15'000), "deeper"},
        {xml("<dict><key>k</key><string>&e;</string></dict>"), "Entity"},
        {xml("<dict><key>k</key><string>&e;</string></dict>", "[<!ENTITY e \"text\">]"), "Entity"},
        {xml("<dict><key>k</key><string>" + QByteArray("&e;").repeated(60'000) + "</string></dict>",
             "[<!ENTITY e \"" + big + "\">]"),
         "Entity"},
        {xml("<dict/>",
             "[<!ENTITY % e \"<!-- " + big + " -->\">" + QByteArray("%e;").repeated(60'000) + "]"),
         "Entity"},
        {xml("<dict><key>k</key><string>&e;</string></dict>",
             "[<!ENTITY e SYSTEM \"file:///etc/hostname\">]"),
         "Entity"},
    };
    for (const auto &[bytes, reason] : rows) {
        QElapsedTimer timer;
        timer.start();
        QString error;
        EXPECT_TRUE(InfoPlistReader::read(bytes, &error).isEmpty()) << bytes.left(400).constData();
        EXPECT_TRUE(error.contains(QLatin1String(reason)))
            << qPrintable(error) << " for " << bytes.left(400).constData();
        EXPECT_LT(timer.elapsed(), 1000) << bytes.left(400).constData();
    }
    for (qsizetype size = 0; size < everyType.trimmed().size(); ++size) {
        QString error;
        InfoPlistReader::read(everyType.left(size), &error);
        EXPECT_FALSE(error.isEmpty()) << size;
    }
}
