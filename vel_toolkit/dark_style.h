// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// Colours and style sheets of the toolkit's dark look, in one place so every
// widget of it matches.
namespace vel::dark_style {

// Fields and boxes: a shade darker than the window, a thin frame, a slight
// rounding as on the buttons.
inline QString line_edit_sheet()
{
    return QStringLiteral("QLineEdit{background-color:rgb(30,30,30);color:rgb(198,213,210);"
                          "border:1px solid rgb(20,20,20);border-radius:3px;padding:0px 4px;"
                          "selection-background-color:rgb(90,90,90);}"
                          "QLineEdit:focus{border:1px solid rgb(99,99,99);}");
}

inline QString combo_box_sheet()
{
    return QStringLiteral(
        "QComboBox{background-color:qlineargradient(x1:0,y1:0,x2:0,y2:1,stop:0 rgb(72,72,72),"
        "stop:1 rgb(58,58,58));color:rgb(198,213,210);border:1px solid rgb(20,20,20);"
        "border-radius:3px;padding:0px 6px;}"
        "QComboBox:hover{border:1px solid rgb(99,99,99);}"
        // A box reached with the keyboard shows it, as the buttons do.
        "QComboBox:focus{border:1px solid rgb(160,175,172);}"
        "QComboBox::drop-down{subcontrol-origin:padding;subcontrol-position:center right;width:18px;"
        "border:none;}"
        "QComboBox::down-arrow{image:url(:/images/arrow_down.png);width:9px;height:6px;}"
        "QComboBox QAbstractItemView{background-color:rgb(38,38,38);color:rgb(198,213,210);"
        "border:1px solid rgb(20,20,20);selection-background-color:rgb(82,82,82);"
        "selection-color:rgb(255,255,255);outline:0px;}");
}

// Push buttons: a soft vertical gradient, lighter under the pointer, darker
// while pressed.
inline QString button_sheet()
{
    return QStringLiteral(
        "QPushButton{background-color:qlineargradient(x1:0,y1:0,x2:0,y2:1,stop:0 rgb(74,74,74),"
        "stop:1 rgb(56,56,56));color:rgb(198,213,210);border:1px solid rgb(20,20,20);"
        "border-radius:3px;padding:0px;}"
        "QPushButton:hover{background-color:qlineargradient(x1:0,y1:0,x2:0,y2:1,"
        "stop:0 rgb(84,84,84),stop:1 rgb(64,64,64));}"
        "QPushButton:pressed{background-color:rgb(36,36,36);}"
        "QPushButton:focus{border:1px solid rgb(99,99,99);}"
        "QPushButton:disabled{color:rgb(110,110,110);}");
}

// Buttons in the header sit on its background picture: no face of their own
// until the pointer rests on them.
inline QString header_button_sheet()
{
    return QStringLiteral("QPushButton{background:transparent;border:none;border-radius:3px;padding:0px;}"
                          "QPushButton:hover{background-color:rgba(255,255,255,18);}"
                          "QPushButton:pressed{background-color:rgba(0,0,0,60);}");
}

// Text buttons in boxes and dialogs: like the plain button, with room for the label.
inline QString text_button_sheet()
{
    return button_sheet() + QStringLiteral("QPushButton{padding:3px 14px;min-width:64px;}"
                                           "QPushButton:default{border:1px solid rgb(140,140,140);}");
}

// Dialog windows. Their buttons carry text_button_sheet() themselves.
inline QString dialog_sheet()
{
    return QStringLiteral("QDialog{background-color:rgb(47,47,47);}"
                          "QDialog QLabel{color:rgb(198,213,210);}");
}

inline QString scroll_bar_sheet()
{
    return QStringLiteral(
        "QScrollBar:vertical{width:11px;background:rgb(47,47,47);margin:0px;border:none;}"
        "QScrollBar:horizontal{height:11px;background:rgb(47,47,47);margin:0px;border:none;}"
        "QScrollBar::handle:vertical{background:black;min-height:24px;border-radius:4px;margin:1px 2px;}"
        "QScrollBar::handle:horizontal{background:black;min-width:24px;border-radius:4px;margin:2px 1px;}"
        "QScrollBar::add-line,QScrollBar::sub-line{width:0px;height:0px;border:none;background:none;}"
        "QScrollBar::add-page,QScrollBar::sub-page{background:none;}");
}

} // namespace vel::dark_style
