// SPDX-License-Identifier: Apache-2.0
#include "tests/support/FreshProcess.h"

#include <Velmora/StandardNames.h>
#include <Velmora/Support.h>

#include <QtCore/QFile>
#include <QtCore/QStringEncoder>
#include <QtCore/QTemporaryDir>

namespace velmora::test {

TEST(StandardNamesTest, TheFirstPreferredLanguageWithATranslationIsUsed) {
    const struct {
        QStringList preferred;
        const char *folder;
    } cases[] = {{{QStringLiteral("fr-CA"), QStringLiteral("en-US")}, "fr"},
                 {{QStringLiteral("pt-BR")}, "pt-PT"},
                 {{QStringLiteral("zh-Hant-TW")}, "zh-Hans"},
                 {{QStringLiteral("sv-SE"), QStringLiteral("nl-NL")}, "en"},
                 {{QStringLiteral("sv-SE"), QStringLiteral("ja-JP")}, "ja"},
                 {{QStringLiteral("DE")}, "en"},
                 {{QStringLiteral("ruby"), QStringLiteral("ru")}, "ru"},
                 {{QString()}, "en"},
                 {{}, "en"}};
    for (const auto &test : cases)
        EXPECT_EQ(StandardNames::localeIdentifier(test.preferred), QLatin1String(test.folder));
}

TEST(StandardNamesTest, AKeyWithoutATextIsItsOwnText) {
    EXPECT_EQ(VLMStringFromKey(QStringLiteral("unknown")), QStringLiteral("unknown"));
}

class StringsFileTest : public ::testing::Test {
protected:
    QHash<QString, QString> parsed(const QByteArray &bytes) {
        QFile file(folder.filePath(QStringLiteral("x.strings")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        return StandardNames::getInfoFromURL(QUrl::fromLocalFile(file.fileName()));
    }

    static QByteArray utf16(const QString &text, QStringConverter::Encoding encoding) {
        QStringEncoder encoder(encoding, QStringConverter::Flag::WriteBom);
        return encoder(text);
    }

    QTemporaryDir folder;
};

TEST_F(StringsFileTest, LinesAreReadInEitherByteOrder) {
    const QString text = QStringLiteral("/* a comment */\n\n"
                                        "\"A\" = \"x\";\n"
                                        "\"RemoveAdsText\" = \"Убрать рекламу\";\n"
                                        "\"twice\" = \"one\";\n\"twice\" = \"two\";\n"
                                        "\"in \"quotes\"\" = \"kept \\n as it is\";\n"
                                        "\"empty\" = \"\";");
    for (const auto encoding : {QStringConverter::Utf16LE, QStringConverter::Utf16BE}) {
        const auto info = parsed(utf16(text, encoding));
        EXPECT_EQ(info.size(), 5);
        EXPECT_EQ(info.value(QStringLiteral("A")), QStringLiteral("x"));
        EXPECT_EQ(info.value(QStringLiteral("RemoveAdsText")), QStringLiteral("Убрать рекламу"));
        EXPECT_EQ(info.value(QStringLiteral("twice")), QStringLiteral("two"));
        EXPECT_EQ(info.value(QStringLiteral("in \"quotes\"")), QStringLiteral("kept \\n as it is"));
        EXPECT_TRUE(info.contains(QStringLiteral("empty")));
    }
}

TEST_F(StringsFileTest, MalformedLinesAndFilesAreSkipped) {
    for (const char *line : {"\"A\" = \"x = \"y\";", "A = \"x\";", "\" = \"x\";", "\"A\" = \";",
                             "= \"", "\"A\" = \"", "\"A\"=\"x\";", "\"A\" = x;"})
        EXPECT_TRUE(parsed(utf16(QLatin1String(line), QStringConverter::Utf16LE)).isEmpty())
            << line;
    EXPECT_TRUE(parsed("\"A\" = \"x\";").isEmpty());
    EXPECT_TRUE(parsed("odd").isEmpty());
    EXPECT_TRUE(
        StandardNames::getInfoFromURL(QUrl::fromLocalFile(folder.filePath(QStringLiteral("none"))))
            .isEmpty());
}

} // namespace velmora::test
