// SPDX-License-Identifier: BSD-3-Clause
#include "rig.h"

#include <vtkRenderWindow.h>
#include <vtkRenderWindowInteractor.h>

#include <array>

namespace ovl::fuzz {
namespace {

constexpr QSize kSize(96, 72); // small: what is painted is not looked at

constexpr std::array<Qt::MouseButton, 4> kButtons
    = {Qt::LeftButton, Qt::LeftButton, Qt::MiddleButton, Qt::RightButton};

struct Key {
    int code;
    const char* text;
};

// Those that the framework's styles know, and some that nobody does.
constexpr Key kKeys[] = {{Qt::Key_R, "r"}, {Qt::Key_R, "R"}, {Qt::Key_W, "w"}, {Qt::Key_S, "s"},
    {Qt::Key_P, "p"}, {Qt::Key_F, "f"}, {Qt::Key_3, "3"}, {Qt::Key_J, "j"}, {Qt::Key_U, "u"},
    {Qt::Key_Q, "q"}, {Qt::Key_E, "e"}, {Qt::Key_Escape, ""}, {Qt::Key_Up, ""}, {Qt::Key_F1, ""},
    {Qt::Key_unknown, "\xE6\xB8\xA9"}, {0, ""}};

Qt::MouseButton button(Deal& deal)
{
    return kButtons[static_cast<std::size_t>(deal.below(kButtons.size()))];
}

Qt::KeyboardModifiers modifiers(Deal& deal)
{
    const unsigned bits = deal.byte();
    Qt::KeyboardModifiers keys = Qt::NoModifier;
    if (bits < 192U) // mostly none
        return keys;
    if (bits & 1U)
        keys |= Qt::ShiftModifier;
    if (bits & 2U)
        keys |= Qt::ControlModifier;
    if (bits & 4U)
        keys |= Qt::AltModifier;
    return keys;
}

} // namespace

Rig::Rig()
    : HostFixture(kSize)
{
}

void Rig::wake()
{
    vtkRenderWindowInteractor* interactor = window()->GetInteractor();
    interactor->SetEnableRender(gesturesRender);
    interactor->Initialize();
}

QSize Rig::size(Deal& deal) const
{
    return deal.rarely(4) ? QSize(deal.between(1, 9), deal.between(1, 9))
                          : QSize(deal.between(20, 180), deal.between(20, 150));
}

QPointF Rig::place(Deal& deal)
{
    const QSize size = widget()->size();
    if (deal.rarely(16)) // the mouse may be grabbed, and then is anywhere
        return {double(deal.between(-300, 300)), double(deal.between(-300, 300))};
    return {deal.below(256) * size.width() / 256.0, deal.below(256) * size.height() / 256.0};
}

int Rig::userActs(Deal& deal)
{
    switch (deal.below(9)) {
    case 0:
        press(place(deal), button(deal), modifiers(deal));
        return 1;
    case 1:
        release(place(deal), button(deal), modifiers(deal));
        return 1;
    case 2: {
        const int steps = deal.between(1, 4);
        drag(place(deal), place(deal), button(deal), steps, modifiers(deal));
        return steps + 2;
    }
    case 3:
        doubleClick(place(deal), button(deal));
        return 3;
    case 4: {
        const int notches = deal.between(-3, 3);
        wheel(place(deal), notches);
        return std::abs(notches);
    }
    case 5: {
        const Key& pressed = kKeys[static_cast<std::size_t>(deal.below(std::size(kKeys)))];
        key(pressed.code, QString::fromUtf8(pressed.text));
        return 2;
    }
    default:
        move(place(deal), modifiers(deal));
        return 1;
    }
}

void Rig::calmDown()
{
    for (const Qt::MouseButton down : {Qt::LeftButton, Qt::MiddleButton, Qt::RightButton})
        release({1.0, 1.0}, down);
    resize(kSize);
}

} // namespace ovl::fuzz
