// SPDX-License-Identifier: BSD-3-Clause
#include "theme.h"

#include <QApplication>
#include <QColor>
#include <QPalette>
#include <QStyleFactory>

namespace ovl::gallery {
namespace {

const QColor kGround(0x17, 0x1a, 0x1f);
const QColor kField(0x0f, 0x11, 0x14);
const QColor kRaised(0x26, 0x2b, 0x33);
const QColor kText(0xd8, 0xdd, 0xe4);
const QColor kFaint(0x6b, 0x74, 0x82);
const QColor kAccent(0x2f, 0x9b, 0xd8);

QPalette darkPalette()
{
    QPalette palette(kRaised, kGround);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, kText);
    palette.setColor(QPalette::Base, kField);
    palette.setColor(QPalette::AlternateBase, kRaised);
    palette.setColor(QPalette::ToolTipBase, kRaised);
    palette.setColor(QPalette::ToolTipText, kText);
    palette.setColor(QPalette::PlaceholderText, kFaint);
    palette.setColor(QPalette::Highlight, kAccent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, kAccent);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, kFaint);
    return palette;
}

const char* const kStyleSheet = R"(
QMainWindow, QStatusBar, QMenuBar { background: #171a1f; }
QMenuBar { border-bottom: 1px solid #0b0d10; padding: 1px 6px; }
QMenuBar::item { padding: 5px 10px; border-radius: 4px; }
QMenuBar::item:selected { background: #262b33; }
QTabBar#pages { background: #171a1f; }
QTabBar#pages::tab { padding: 10px 18px; color: #8b95a3; border: none;
    border-bottom: 2px solid transparent; }
QTabBar#pages::tab:selected { color: #ffffff; border-bottom: 2px solid #2f9bd8; }
QTabBar#pages::tab:hover:!selected { color: #d8dde4; }
QDockWidget { color: #d8dde4; }
QDockWidget::title { background: #1c2026; padding: 9px 16px; border-bottom: 1px solid #0b0d10; }
QDockWidget::close-button, QDockWidget::float-button { subcontrol-origin: margin;
    subcontrol-position: center right; position: relative; width: 20px; height: 20px;
    border: none; border-radius: 4px; background: transparent; icon-size: 12px; }
QDockWidget::close-button { right: 12px; }
QDockWidget::float-button { right: 38px; }
QDockWidget::close-button:hover, QDockWidget::float-button:hover { background: #333b45; }
QMainWindow::separator { background: #0b0d10; width: 3px; height: 3px; }
QScrollArea#panel { border: none; background: #1c2026; }
QWidget[role="strip"] { background: #171a1f; }
QLabel[role="title"] { color: #d8dde4; font-weight: bold; background: transparent; }
QWidget[role="strip"][active="true"] QLabel[role="title"] { color: #4fb6ee; }
QLabel[role="source"] { color: #8b95a3; background: transparent; }
QLabel[role="hint"] { color: #6f7987; background: #12151a; }
QFrame#job { background: #16303f; border-bottom: 1px solid #0b0d10; }
QFrame#job QLabel { color: #d3ecfb; }
QProgressBar { background: #0f1114; border: none; border-radius: 3px; max-height: 6px; }
QProgressBar::chunk { background: #2f9bd8; border-radius: 3px; }
QScrollArea#panel > QWidget > QWidget { background: #1c2026; }
QLabel[role="section"] { color: #8b95a3; font-weight: bold; letter-spacing: 1px;
    padding-top: 8px; border: none; }
QLabel[role="readout"] { color: #ffffff; }
QFrame[role="rule"] { background: #2a3038; max-height: 1px; border: none; }
QScrollBar { background: transparent; border: none; margin: 0; }
QScrollBar:vertical { width: 10px; }
QScrollBar:horizontal { height: 10px; }
QScrollBar::handle { background: #39414c; border-radius: 3px; margin: 2px; }
QScrollBar::handle:vertical { min-height: 32px; }
QScrollBar::handle:horizontal { min-width: 32px; }
QScrollBar::handle:hover { background: #4a5462; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: none; }
QPushButton { background: #2a3038; border: 1px solid #39414c; border-radius: 4px; padding: 5px 12px; }
QPushButton:hover { background: #333b45; }
QPushButton:pressed, QPushButton:checked { background: #2f9bd8; border-color: #2f9bd8; color: white; }
QPushButton:disabled { color: #6b7482; background: #20252b; }
QPushButton:focus { border-color: #2f9bd8; }
QStatusBar { border-top: 1px solid #0b0d10; color: #8b95a3; }
QStatusBar::item { border: none; }
QLabel#coordinates { color: #d8dde4; padding: 4px 12px; }
QLabel#rates, QLabel#file { color: #8b95a3; }
QFrame#notice { background: #5a2326; border-bottom: 1px solid #0b0d10; }
QFrame#notice QLabel { color: #ffe3e3; padding: 6px; }
QFrame#notice QToolButton { color: #ffe3e3; border: none; padding: 4px 10px; }
QFrame#notice[kind="remark"] { background: #4a3d1c; }
)";

} // namespace

void applyTheme(QApplication& application)
{
    application.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    application.setPalette(darkPalette());
    application.setStyleSheet(QString::fromLatin1(kStyleSheet));
}

} // namespace ovl::gallery
