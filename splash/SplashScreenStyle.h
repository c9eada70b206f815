// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "SplashScreenController.h"

#include <QtCore/QLatin1String>
#include <QtCore/QVariantMap>

#include <span>
#include <string_view>

namespace velmora {

/// One option of the splash screens' appearance: a row of SplashScreenStyle's table.
struct SplashScreenOption {
    /// Key in the presenter's options. Hosts know it by this spelling.
    std::string_view key;
    /// The function of Velmora that sets it, and what it is. For docs/splash-options.md.
    std::string_view operation;
    std::string_view meaning;
    /// The value that a presenter starts with; invalid when there is none.
    QVariant (*standardValue)();
    /// The colour of the dark preset, in whose light counterpart the standard value is. Null for
    /// options that belong to no preset.
    QVariant (*darkValue)() = nullptr;
    /// Gives a splash screen a value that a host has just set.
    void (*set)(SplashScreenController &, const QVariant &);
    /// Gives a splash screen the stored value when it is made later. A missing value counts as
    /// null, 0 or false.
    void (*restore)(SplashScreenController &, const QVariant &);

    QString keyText() const { return QLatin1String(key.data(), qsizetype(key.size())); }
};

/// The table of the options of the splash screens' appearance. To add an option, add a row and an
/// operation to the facade. Main thread only.
class SplashScreenStyle {
public:
    /// The row of a key; a key without a row does not compile.
    static consteval const SplashScreenOption &option(std::string_view key);

    /// All rows.
    static std::span<const SplashScreenOption> options();
    /// The options of a new presenter, by key.
    static QVariantMap standardOptions();
    /// Applies all options to one splash screen, in the table's order.
    static void restoreAll(SplashScreenController &controller, const QVariantMap &options);
    /// The table as a page of the documentation (Markdown).
    static QString documentation();

private:
    template<class Setter>
    struct ValueOf;
    template<class Parameter>
    struct ValueOf<void (SplashScreenController::*)(Parameter)> {
        using Type = std::remove_cvref_t<Parameter>;
    };

    template<class Value>
    static Value asStored(const QVariant &value) {
        return value.value<Value>();
    }
    static double wholePart(const QVariant &value);
    static double singlePrecision(const QVariant &value) { return double(value.toFloat()); }

    template<auto Setter, auto Read = asStored<typename ValueOf<decltype(Setter)>::Type>>
    static constexpr SplashScreenOption row(std::string_view key, QVariant (*standardValue)(),
                                            std::string_view operation, std::string_view meaning) {
        using Value = typename ValueOf<decltype(Setter)>::Type;
        return {
            .key = key,
            .operation = operation,
            .meaning = meaning,
            .standardValue = standardValue,
            .set = [](SplashScreenController &to,
                      const QVariant &value) { (to.*Setter)(value.value<Value>()); },
            .restore = [](SplashScreenController &to,
                          const QVariant &value) { (to.*Setter)(Read(value)); },
        };
    }
    /// A colour with its values in the light and in the dark preset.
    template<auto Setter>
    static constexpr SplashScreenOption colorRow(std::string_view key, QVariant (*light)(),
                                                 QVariant (*dark)(), std::string_view operation,
                                                 std::string_view meaning) {
        SplashScreenOption made = row<Setter>(key, light, operation, meaning);
        made.darkValue = dark;
        return made;
    }

    static QVariant none() { return {}; }
    static QVariant off() { return false; }
    static QVariant black() { return QColor(Qt::black); }
    static QVariant white() { return QColor(Qt::white); }
    static QVariant grey() { return QColor::fromRgbF(0.5f, 0.5f, 0.5f); }
    static QVariant darkGrey() { return QColor::fromRgbF(1 / 3.f, 1 / 3.f, 1 / 3.f); }
    // Of the dark preset. Each of the last three has a contrast of at least 4.5:1 with the first
    // two.
    static QVariant darkBackground() { return QColor(0x17, 0x19, 0x1d); }
    static QVariant darkDisc() { return QColor(0x21, 0x24, 0x2a); }
    static QVariant darkText() { return QColor(0xf2, 0xf3, 0xf5); }
    static QVariant darkTrack() { return QColor(0x8e, 0x95, 0xa1); }
    static QVariant darkElapsed() { return QColor(0xdd, 0xe1, 0xe8); }
    template<auto Number>
    static QVariant number() {
        return Number;
    }

    struct Table;
};

struct SplashScreenStyle::Table {
    using To = SplashScreenController;

    static constexpr SplashScreenOption rows[] = {
        row<&To::setTopInset, wholePart>(
            "topInset", number<0>, "setSplashScreenTopInset",
            "height of the strip at the top that stays uncovered, points; splash screens that are "
            "added later take the whole part"),
        row<&To::setIcon>("icon", none, "setSplashScreenIcon",
                          "picture on the start and end screens; without one the application's "
                          "icon, else the window's"),
        colorRow<&To::setTextColor>("textColor", black, darkText, "setSplashScreenTextColor",
                                    "colour of the two lines of text"),
        colorRow<&To::setBackgroundColor>("backgroundColor", white, darkBackground,
                                          "setSplashScreenBackgroundColor",
                                          "colour behind everything"),
        row<&To::setBackgroundImage>("backgroundImage", none, "setSplashScreenBackgroundImage",
                                     "picture behind everything"),
        // The key lacks a letter; it stays as hosts know it.
        row<&To::setBackgroundImageScaling>(
            "backgoundImageScaling", number<0u>, "setSplashScreenBackgroundImageScaling",
            "how that picture fills the window: 0 smaller when it has to be, 1 to the window's "
            "size, 2 in its own size, 3 as large as it fits"),
        row<&To::setHiddenButtonAfterVideo>("hiddenButtonAfterVideo", off,
                                            "setSplashScreenHiddenButtonAfterVideo",
                                            "leaves the remove-ads button out of the end screen"),
        row<&To::setHiddenButtonBeforeVideo>(
            "hiddenButtonBeforeVideo", off, "setSplashScreenHiddenButtonBeforeVideo",
            "leaves the remove-ads button out of the start screen"),
        colorRow<&To::setTimerTextColor>("timerTextColor", black, darkText,
                                         "setSplashScreenTimerTextColor",
                                         "colour of the seconds inside the rings"),
        colorRow<&To::setTimerBackgroundColor>("timerBackgroundColor", white, darkDisc,
                                               "setSplashScreenTimerBackgroundColor",
                                               "colour of the rings' discs"),
        colorRow<&To::setTimerBorderColor>("timerBorderColor", grey, darkTrack,
                                           "setSplashScreenTimerBorderColor",
                                           "colour of the rings' tracks"),
        colorRow<&To::setTimerProgressColor>("timerProgressColor", darkGrey, darkElapsed,
                                             "setSplashScreenTimerBorderColor",
                                             "colour of the rings' elapsed parts"),
        row<&To::setTimerBorderWidth, singlePrecision>("timerBorderWidth", number<2>,
                                                       "setSplashScreenTimerBorderWidth",
                                                       "thickness of the rings' tracks, points"),
        row<&To::setTimerProgressWidth, singlePrecision>(
            "timerProgressWidth", number<4>, "setSplashScreenTimerBorderWidth",
            "how much thicker the elapsed parts are, points"),
        row<&To::setHiddenIcon>("hiddenIcon", off, "setSplashScreenHiddenIcon",
                                "leaves the icon out of both screens"),
        row<&To::setHiddenIconAfterVideo>("hiddenIconAfterVideo", off,
                                          "setSplashScreenHiddenIconAfterVideo",
                                          "leaves the icon out of the end screen"),
        row<&To::setHiddenIconBeforeVideo>("hiddenIconBeforeVideo", off,
                                           "setSplashScreenHiddenIconBeforeVideo",
                                           "leaves the icon out of the start screen"),
        row<&To::setHiddenBackgroundImage>("hiddenBackgroundImage", off,
                                           "setSplashScreenHiddenBackgroundImage",
                                           "leaves the background picture out of both screens"),
        row<&To::setHiddenBackgroundImageAfterVideo>(
            "hiddenBackgroundImageAfterVideo", off,
            "setSplashScreenHiddenBackgroundImageAfterVideo",
            "leaves the background picture out of the end screen"),
        row<&To::setHiddenBackgroundImageBeforeVideo>(
            "hiddenBackgroundImageBeforeVideo", off,
            "setSplashScreenHiddenBackgroundImageBeforeVideo",
            "leaves the background picture out of the start screen"),
    };
};

consteval const SplashScreenOption &SplashScreenStyle::option(std::string_view key) {
    for (const SplashScreenOption &row : Table::rows) {
        if (row.key == key)
            return row;
    }
    throw "there is no such option";
}

} // namespace velmora
