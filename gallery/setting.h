// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_SETTING_H
#define OVL_GALLERY_SETTING_H

#include <QColor>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <vector>

namespace ovl::gallery {

/** What the user may set: how it is called and edited, and what becomes of a new value. */
struct Setting {
    enum class Editor { Check, Whole, Hexadecimal, Real, Text, Colour, Choice, Action };
    using Apply = std::function<void(const QVariant&)>;

    QString name; // by which the page and the tests find it
    QString label;
    Editor editor = Editor::Check;
    QVariant value; // at first
    Apply apply;
    double smallest = 0; // of the numbers
    double largest = 0;
    QStringList choices; // the value is the index
    QString suffix;
    QString tip;
    bool ofView = true; // a new view has to be told it

    Setting withTip(const QString& text) &&
    {
        tip = text;
        return std::move(*this);
    }
    Setting withSuffix(const QString& text) &&
    {
        suffix = text;
        return std::move(*this);
    }
    /** The page's own affair, of which a new view knows by other means. */
    Setting ofPage() &&
    {
        ofView = false;
        return std::move(*this);
    }
};

/** One line of a panel: a label, and one editor or a few. */
struct SettingRow {
    QString label;
    std::vector<Setting> settings;
};

/** Rows under a heading. */
struct SettingGroup {
    QString heading;
    std::vector<SettingRow> rows;
};

// What the tables of settings are written with.

inline Setting check(const char* name, const QString& label, bool on, Setting::Apply apply)
{
    return {QString::fromLatin1(name), label, Setting::Editor::Check, on, std::move(apply), 0, 0,
        {}, {}, {}, true};
}

inline Setting whole(const char* name, int smallest, int largest, int value, Setting::Apply apply)
{
    return {QString::fromLatin1(name), {}, Setting::Editor::Whole, value, std::move(apply),
        static_cast<double>(smallest), static_cast<double>(largest), {}, {}, {}, true};
}

inline Setting word(const char* name, int value, Setting::Apply apply)
{
    return {QString::fromLatin1(name), {}, Setting::Editor::Hexadecimal, value, std::move(apply), 0,
        65535, {}, {}, {}, true};
}

inline Setting real(const QString& name, double value, Setting::Apply apply)
{
    return {name, {}, Setting::Editor::Real, value, std::move(apply), -1e9, 1e9, {}, {}, {}, true};
}

inline Setting text(const char* name, const QString& value, Setting::Apply apply)
{
    return {QString::fromLatin1(name), {}, Setting::Editor::Text, value, std::move(apply), 0, 0, {},
        {}, {}, true};
}

inline Setting colour(const char* name, const QColor& value, Setting::Apply apply)
{
    return {QString::fromLatin1(name), {}, Setting::Editor::Colour, value, std::move(apply), 0, 0,
        {}, {}, {}, true};
}

inline Setting choice(const char* name, const QStringList& choices, int value, Setting::Apply apply)
{
    return {QString::fromLatin1(name), {}, Setting::Editor::Choice, value, std::move(apply), 0, 0,
        choices, {}, {}, true};
}

inline Setting action(const char* name, const QString& label, std::function<void()> run)
{
    return {QString::fromLatin1(name), label, Setting::Editor::Action, {},
        [run = std::move(run)](const QVariant&) { run(); }, 0, 0, {}, {}, {}, false};
}

} // namespace ovl::gallery

#endif
