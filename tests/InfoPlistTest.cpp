#include "platform/InfoPlistReader.h"

#include <QtCore/QDateTime>
#include <QtCore/QElapsedTimer>

#include <gtest/gtest.h>
#include <plist/plist.h>

#include <random>

using velmora::InfoPlistReader;

namespace {

QByteArray xml(const QByteArray &content) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" + content +
           "</plist>\n";
}

const QByteArray everyType =
    xml("<dict><!-- </dict> in a comment -->"
        "<key>MetrivoAppId</key><string>mac.123456.mac-store</string>"
        "<key>escaped</key><string>a &lt;b&gt; &amp; \xd0\xb6 <![CDATA[<c>]]></string>"
        "<key>empty</key><string></string>"
        "<key>yes</key><true/><key>no</key><false/>"
        "<key>negative</key><integer>-42</integer>"
        "<key>largest</key><integer>9223372036854775807</integer>"
        "<key>real</key><real>2.5</real>"
        "<key>date</key><date>2024-02-29T12:34:56Z</date>"
        "<key>data</key><data>AAECAwQ=</data>"
        "<key>list</key><array><string>x</string><array/><dict><key>k</key><integer>1</integer>"
        "</dict></array></dict>");

QVariantMap expectedValues() {
    return {
        {QStringLiteral("MetrivoAppId"), QStringLiteral("mac.123456.mac-store")},
        {QStringLiteral("escaped"), QStringLiteral("a <b> & \u0436 <c>")},
        {QStringLiteral("empty"), QString()},
        {QStringLiteral("yes"), true},
        {QStringLiteral("no"), false},
        {QStringLiteral("negative"), -42LL},
        {QStringLiteral("largest"), 9223372036854775807LL},
        {QStringLiteral("real"), 2.5},
        {QStringLiteral("date"), QDateTime(QDate(2024, 2, 29), QTime(12, 34, 56), Qt::UTC)},
        {QStringLiteral("data"), QByteArray("\0\1\2\3\4", 5)},
        {QStringLiteral("list"), QVariantList{QStringLiteral("x"), QVariantList(),
                                              QVariantMap{{QStringLiteral("k"), 1LL}}}},
    };
}

QByteArray toBinary(const QByteArray &text) {
    plist_t tree = nullptr;
    plist_from_xml(text.constData(), static_cast<uint32_t>(text.size()), &tree);
    char *bytes = nullptr;
    uint32_t size = 0;
    plist_to_bin(tree, &bytes, &size);
    const QByteArray result(bytes, static_cast<qsizetype>(size));
    plist_to_bin_free(bytes);
    plist_free(tree);
    return result;
}

// Builds a binary list object by object, also one that no sound writer would make.
class BinaryWriter {
public:
    int add(const QByteArray &object) {
        m_offsets.append(static_cast<quint32>(m_bytes.size()));
        m_bytes += object;
        return static_cast<int>(m_offsets.size() - 1);
    }
    int addList(const QList<int> &items) {
        QByteArray object(1, static_cast<char>(0xa0 | items.size()));
        for (int item : items)
            object += bigEndian(static_cast<quint32>(item), 2);
        return add(object);
    }
    int addMap(int key, int value) {
        return add(char(0xd1) + bigEndian(static_cast<quint32>(key), 2) +
                   bigEndian(static_cast<quint32>(value), 2));
    }
    QByteArray finish(int top) const {
        QByteArray result = m_bytes;
        for (quint32 offset : m_offsets)
            result += bigEndian(offset, 4);
        result += QByteArray(6, '\0') + char(4) + char(2);
        for (quint64 number : {quint64(m_offsets.size()), quint64(top), quint64(m_bytes.size())})
            result += bigEndian(number, 8);
        return result;
    }

private:
    static QByteArray bigEndian(quint64 number, int size) {
        QByteArray result;
        for (int shift = 8 * (size - 1); shift >= 0; shift -= 8)
            result += static_cast<char>(number >> shift);
        return result;
    }

    QByteArray m_bytes = "bplist00";
    QList<quint32> m_offsets;
};

void expectRefused(const QByteArray &bytes, const char *what) {
    QElapsedTimer timer;
    timer.start();
    QString error;
    EXPECT_TRUE(InfoPlistReader::read(bytes, &error).isEmpty()) << what;
    EXPECT_FALSE(error.isEmpty()) << what;
    EXPECT_LT(timer.elapsed(), 5000) << what; // bombs take minutes, or the machine
}

} // namespace

TEST(InfoPlist, ReadsEveryTypeFromBothForms) {
    for (const QByteArray &bytes : {everyType, toBinary(everyType)}) {
        QString error = QStringLiteral("of an earlier call");
        const QVariantMap values = InfoPlistReader::read(bytes, &error);
        EXPECT_TRUE(error.isEmpty()) << qPrintable(error);
        const QVariantMap expected = expectedValues();
        EXPECT_EQ(values.keys(), expected.keys());
        for (const QString &key : expected.keys()) {
            EXPECT_EQ(values.value(key), expected.value(key)) << qPrintable(key);
            EXPECT_EQ(values.value(key).typeId(), expected.value(key).typeId()) << qPrintable(key);
        }
        EXPECT_EQ(InfoPlistReader::read(bytes, nullptr), values);
    }
}

TEST(InfoPlist, RefusesWhatIsNoDictionary) {
    expectRefused({}, "nothing");
    expectRefused("bplist00", "a header alone");
    expectRefused("MetrivoAppId = mac.123456.mac-store", "plain text");
    expectRefused(xml("<array/>"), "an array at the top");
    expectRefused(xml("<string>x</string>"), "a string at the top");
    expectRefused(toBinary(xml("<array/>")), "a binary array");
    expectRefused(xml("<dict/>") + QByteArray(256 * 1024, ' '), "too large");
}

TEST(InfoPlist, RefusesBombs) {
    expectRefused(xml(QByteArray("<array>").repeated(200'000)), "200,000 nested arrays");
    expectRefused(xml("<dict><key>a</key>" + QByteArray("<array>").repeated(18'000) +
                      QByteArray("</array>").repeated(18'000) + "</dict>"),
                  "18,000 nested arrays");
    expectRefused(xml("<dict><key>a</key>" + QByteArray("<array>").repeated(1'900) +
                      QByteArray("</array>").repeated(1'900) + "</dict>"),
                  "1,900 nested arrays");

    BinaryWriter deep;
    const int key = deep.add("\x51k");
    int inner = deep.addList({});
    for (int i = 0; i < 20'000; ++i)
        inner = deep.addList({inner});
    expectRefused(deep.finish(deep.addMap(key, inner)), "20,000 nested binary arrays");

    BinaryWriter wide;
    const int letter = wide.add("\x51k");
    int level = letter;
    for (int i = 0; i < 40; ++i)
        level = wide.addList({level, level});
    expectRefused(wide.finish(wide.addMap(letter, level)), "2^40 strings");

    BinaryWriter cycle;
    const int name = cycle.add("\x51k");
    expectRefused(cycle.finish(cycle.addMap(name, 1)), "a dictionary within itself");
}

TEST(InfoPlist, SurvivesZerosInText) {
    const QByteArray text = QByteArray("\x53") + "a" + '\0' + "b";
    BinaryWriter inKey;
    const int zeroKey = inKey.add(text);
    expectRefused(inKey.finish(inKey.addMap(zeroKey, zeroKey)), "a zero in a key");

    BinaryWriter inValue;
    const int key = inValue.add("\x51k");
    const QByteArray bytes = inValue.finish(inValue.addMap(key, inValue.add(text)));
    QString error;
    const QVariantMap map = InfoPlistReader::read(bytes, &error);
    EXPECT_TRUE(map.value(QStringLiteral("k")).toString().startsWith(QLatin1Char('a')))
        << qPrintable(error);

    expectRefused(xml(QByteArray("<dict><key>a") + '\0' + "b</key><true/></dict>"),
                  "a zero in XML");
    for (const QByteArray entity : {"&#0;", "&#x0;", "&#x000;"}) {
        // Any outcome but an abort.
        InfoPlistReader::read(
            xml("<dict><key>a" + entity + "b</key><string>" + entity + "</string></dict>"),
            nullptr);
    }
}

// A damaged file may still be readable; what counts is an orderly outcome.
TEST(InfoPlist, SurvivesDamage) {
    std::mt19937 random(20240229);
    int refused = 0;
    for (const QByteArray &whole : {everyType, toBinary(everyType)}) {
        for (qsizetype size = 0; size < whole.size(); ++size) {
            QString error;
            InfoPlistReader::read(whole.left(size), &error);
            refused += !error.isEmpty();
        }
        for (int round = 0; round < 10'000; ++round) {
            QByteArray bytes = whole;
            const int changes = 1 + static_cast<int>(random() % 4);
            for (int i = 0; i < changes; ++i) {
                const auto at = static_cast<qsizetype>(random()) % bytes.size();
                const auto byte = static_cast<char>(random());
                switch (random() % 3) {
                case 0:
                    bytes[at] = byte;
                    break;
                case 1:
                    bytes.remove(at, 1 + byte % 8);
                    break;
                default:
                    bytes.insert(at, bytes.mid(at / 2, 1 + byte % 16));
                }
            }
            QString error;
            const QVariantMap map = InfoPlistReader::read(bytes, &error);
            ASSERT_TRUE(error.isEmpty() || map.isEmpty());
            refused += !error.isEmpty();
        }
    }
    EXPECT_GT(refused, 10'000);
}
