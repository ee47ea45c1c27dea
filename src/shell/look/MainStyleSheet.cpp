#include "MainStyleSheet_p.h"

#include <QApplication>
#include <QColor>

// The families of the sheet, in its order. Blanks and spellings are kept as hosts know them: some
// take a rule of this text out or replace it. A single colon before a sub-control is as good as
// two.

namespace
{

constexpr char disabledLook[] = "{background: palette(highlighted-text); border-color: "
                                "palette(shadow); color: palette(window)}";

// %1 is "up" or "down", %2 what the edges of the two buttons differ in, %3 the arrow's image.
constexpr char spinBoxButton[] =
    R"(QAbstractSpinBox::%1-button   {%2}
QAbstractSpinBox::%1-button:hover {background: rgba(255,255,255, 115)}
QAbstractSpinBox::%1-button:pressed {background: rgba(255,255,255, 115); border-color: #000F24}
QAbstractSpinBox::%1-arrow {image: url(":/MainButtons1/%3"); width: 8px; height: 8px}
QAbstractSpinBox::%1-arrow:disabled, QAbstractSpinBox::%1-arrow:off {image: url(:)}
)";

constexpr char upButton[] =
    "background: rgba( 70, 70, 70, 115); border-top-right-radius:9px;            "
    "subcontrol-origin: border; subcontrol-position: top right; width: 20px;            "
    "border-style: solid; border-color: white; border-width: 2px 2px 1px 2px;";
constexpr char downButton[] =
    "background: rgba( 70, 70, 70, 115); border-bottom-right-radius:9px;            "
    "subcontrol-origin: border; subcontrol-position: bottom right; width: 20px;            "
    "border-style: solid; border-color: white; border-width: 1px 2px 2px 2px;";

constexpr char spinBoxes[] =
    R"(QAbstractSpinBox:enabled {padding-left: 4px; border: 2px solid palette(window-text); background: palette(window)}
QAbstractSpinBox:disabled {padding-left: 4px; border: 2px solid palette(shadow); background: palette(base); color: palette(highlighted-text)}
QAbstractSpinBox::up-button:disabled, QAbstractSpinBox::down-button:disabled {border-color: palette(shadow)}
)";

constexpr char lineEdits[] =
    R"(QLineEdit {lineedit-password-character: 8226; border: 2px solid white; background:  palette(base); padding: 1px 18px 1px 3px}
QLineEdit:disabled {border-color: palette(shadow); background: palette(base); color: palette(highlighted-text)}
)";

constexpr char comboBoxes[] =
    R"(QComboBox {border: 2px solid palette(window-text); padding: 1px 3px 1px 3px}
QComboBox:editable {background: palette(base)}
QComboBox:!editable, QComboBox::drop-down:editable {background: rgba( 70, 70, 70, 115)}
QComboBox:!editable:on, QComboBox::drop-down:editable:on {background: rgba(255,255,255, 115)}
QComboBox:on {padding-top: 3px; padding-left: 4px}
QComboBox::drop-down {subcontrol-origin: border; subcontrol-position: bottom right; width: 20px;border-width: 2px; border-style: solid; border-color: palette(window-text); border-top-right-radius: 9px; border-bottom-right-radius: 9px}
QComboBox::down-arrow {image: url(":/MainButtons1/Table Down"); width: 8px; height: 8px}
QComboBox::down-button:hover {background: rgba(255,255,255, 115)}
QComboBox::down-button:pressed {background: rgba(255,255,255, 115)}
QComboBox::down-arrow:on {top: 1px; left: 1px}
QComboBox::disabled %1
QComboBox::down-arrow:disabled {image: url(:)}
QComboBox::drop-down:disabled {border-color: palette(shadow)}
QComboBox QAbstractItemView {border: 2px solid palette(window-text); border-radius: 0px; background: palette(base); selection-background-color: #001C42}
)";

constexpr char frames[] =
    R"(QFrame { border: palette(window-text) }
QFrame:disabled { border-color: #003D91 }
)";

constexpr char toolButtons[] =
    R"(QToolButton:hover, QMenuBar::item:selected {border: 2px solid palette(window-text); background-color: rgba(255,255,255, 115)}
QToolButton {margin: 0px; border: 2px solid transparent;   border-radius: 9px;}
QToolButton:disabled %1
QToolButton:pressed {border: 2px solid #001C42; background-color: rgba(255,255,255, 115)}
QToolButton:checked  {color: #c7d441 }
QToolButton:checked:disabled %1
)";

constexpr char pushButtons[] =
    R"(QPushButton {border: solid; padding: 4px 6px 4px 6px; border-width: 2px; border-radius: 9px; outline: 1px dotted palette(window-text)}
QPushButton:hover {background-color: rgba(255,255,255, 115)}
QPushButton:enabled {border-color: palette(window-text); color: palette(button-text)}
QPushButton:disabled %1
QPushButton:checked {color: #c7d441; border-color: #c7d441}
QPushButton:checked:disabled %1
QPushButton:pressed {border-color: #001C42; background-color: rgba(255,255,255, 115)}
)";

constexpr char checkBoxes[] =
    R"(QCheckBox::disabled  { color: #003D91} 
QCheckBox:indicator {background:rgba(55,55,55,115); border-radius: 7px; padding: 1px; border: 2px solid palette(text); width: 14px; height: 14px;}
QCheckBox::indicator:disabled {border-color: #003D91}
QCheckBox::indicator:checked {image: url(:/MainButtons1/Haekchen_normal)}
QCheckBox::indicator:checked:disabled {image: url(:/MainButtons1/Haekchen_disabled)}
QCheckBox::indicator:pressed {border-color: #001C42; background: rgba(255,255,255, 115)}
QCheckBox::indicator:hover {background: rgba(255,255,255, 115)}
QCheckBox::indicator:indeterminate {image: url(:/MainButtons1/Haekchen_normal)}
QCheckBox::indicator:indeterminate:disabled {image: url(:/MainButtons1/Haekchen_disabled)}
QRadioButton:disabled {color: palette(highlighted-text)}
)";

constexpr char buttonBoxes[] =
    R"(QDialogButtonBox { dialogbuttonbox-buttons-have-icons: 1; }
)";

constexpr char groupBoxes[] =
    R"(QGroupBox {background: transparent; border: 2px solid palette(window-text); border-radius: 11px;margin-top: 6ex;}
QGroupBox::title {subcontrol-origin: margin; subcontrol-position: top left; padding: 0 7px; top: 2ex}
QGroupBox::indicator {width: 13px; height: 13px}
)";

constexpr char tabs[] =
    R"(QTabWidget::pane {border-top: 2px solid #9AA9B6}
QTabWidget::tab-bar {left: 5px}
QTabBar::tab {background: #003D91; border: 2px solid #AFB2B5; border-bottom-color: #9AA9B6; border-top-left-radius: 4px; border-top-right-radius: 4px; min-width: 8ex; padding: 2px 12px;}
QTabBar::tab:selected, QTabBar::tab:hover {padding-top:4px; background: #001C42}
QTabBar::tab:!selected {margin-top: 2px}
QTabBar::tab:selected {border-color: palette(window-text); margin-left: -4px; margin-right: -4px}
QTabBar::tab:first:selected {margin-left: 4px}
QTabBar::tab:last:selected {margin-right: 0}
QTabBar::tab:only-one {margin: 0}
)";

constexpr char toolBoxes[] =
    R"(QToolBox::tab {background: red; border-radius: 5px; color: darkgray;}
QToolBox::tab:selected {font: italic; }
QToolBox::handle {image: url(qml/AXR-Logo);}
)";

constexpr char progressBars[] =
    R"(QProgressBar {border-radius: 4px; border: none; color: tomato; text-decoration: overline; font-size: 16px; text-align: right;  padding-top: 1px; margin: 2px; padding-right: 5px; padding-bottom: 1px; padding-left: 5px}
QProgressBar::chunk {border-radius: 5px; margin:0px; background: qlineargradient(x1: 0.1, y1: 0.5, x2: 1, y2: 0.8, stop: 0.02 transparent, stop: 0.8 #9AA9B6)}
)";

constexpr char sliders[] =
    R"(QSlider::handle:horizontal { background: #001C42;  border-radius: 5px; image: url(:/Misc/SorvanelCur)}
QSlider::handle:horizontal:hover {padding: -4px}
QSlider::handle:horizontal:pressed {padding: -2px}
QSlider::add-page:horizontal {background: #001C42; margin: 5px}
QSlider::sub-page:horizontal {background: #003D91; margin: 5px}
QSlider::groove:horizontal {background: transparent; height: 16px}
QSlider::handle:horizontal:disabled {background: palette(highlighted-text)}
)";

constexpr char scrollAreas[] =
    R"(QAbstractScrollArea {border-style: solid; padding: 4px; background-color: transparent }
)";

constexpr char trees[] =
    R"(QTreeView {alternate-background-color: cornflowerblue}
QTreeView::branch:has-siblings:!adjoins-item {border-image: url(:)}
QTreeView::branch:has-siblings:adjoins-item {border-image: url(:)}
QTreeView::branch:!has-children:!has-siblings:adjoins-item {border-image: url(:)}
QTreeView::branch:has-children:!has-siblings:closed, QTreeView::branch:closed:has-children:has-siblings {border-image: none; image: url(:/Misc/BranchClose)}
QTreeView::branch:open:has-children:!has-siblings, QTreeView::branch:open:has-children:has-siblings {border-image: none; image: url(:/Misc/BranchOpen)}
)";

constexpr char headers[] =
    R"(QHeaderView {border-style: none; padding: 0px; background: palette(base)}
)";

constexpr char tables[] =
    R"(QTableView {alternate-background-color: #3A5B78}
QTableView QTableCornerButton::section {background: #3A5B78; border: 2px outset #15252F}
QTableView {selection-background-color: transparent}
)";

constexpr char labels[] =
    R"(QLabel:enabled {color: palette(window-text)}
QLabel#WindowsTitle:active {color: palette(window-text)}
QLabel#WindowsTitle:!active {color: #9AA9B6}
QFrame:disabled, QLabel:disabled %1
)";

constexpr char leds[] =
    R"(QLabel#Led{border-style: none; border-radius: 9px; min-width: 18px; min-height: 18px; max-width: 18px; max-height: 18px;}
QLabel#Led:enabled{background: %1rgba(255, 0, 0, 255))}
QLabel#Led:disabled{background: %1rgba(25, 20, 30, 255))}
)";
constexpr char ledGradient[] =
    "qradialgradient(spread:pad, cx:0.5, cy:0.5, radius:0.5, fx:0.229, fy:0.204136, stop:0 "
    "rgba(255, 255, 255, 255), stop:0.152542 rgba(255, 255, 255, 255), stop:0.20904 rgba(255, 255, "
    "255, 255), stop:1 ";

constexpr char lists[] =
    R"(QListView::item:alternate {background-color: palette(base)}
QListView::item:selected:!active {background-color: #001C42}
QListView::item:selected:active  {background-color: #9AA9B6; color: gold}
QListView::item:hover {background-color: #9AA9B6}
)";

constexpr char docks[] =
    R"(QDockWidget {border: 2px solid lime;}
QDockWidget::title {border: 1px solid palette(window); text-align: left; background: palette(base); padding-left: 5px; border-radius: 0px;}
)";

constexpr char separators[] =
    R"(QMainWindow::separator {width: 4px; height: 4px; background: palette(base)}
QMainWindow::separator:hover {background: #9AA9B6}
)";

constexpr char splitters[] =
    R"(QSplitter::handle {height: 9px; width: 9px; image: url(:/Misc/SorvanelCur);}
QSplitter::handle:hover {background: rgba(255,255,255, 115)}
QSplitter::handle:pressed {height: 1px; image: url(:/Misc/SorvanelCur);background: #9AA9B6}
)";

constexpr char sizeGrips[] =
    R"(QSizeGrip {image: url(:/Misc/SizeGrip); width: 16px; height: 16px;}
)";

constexpr char toolTips[] =
    R"(QToolTip {border: 1px solid palette(window-text); padding: 5px; background: palette(base); color: palette(window-text)}
)";

constexpr char menuBars[] =
    R"(QMenuBar::item {border-radius: 7px; padding: 5px}
QMenuBar::item:pressed {background: #888888}
QMenu::item:disabled {color: #9AA9B6}
)";

constexpr char bars[] =
    R"(QToolBar, QStatusBar, QMenuBar {border-radius:0px; background: palette(base); spacing: 14px; padding: 4px}
QToolBar:bottom {border-top: 1px solid palette(window)}
QToolBar:top {border-bottom: 1px solid palette(window)}
QToolBar::handle {image: url(:/Misc/SorvanelCur)}
)";

constexpr char scrollAreasAtLast[] =
    R"(QAbstractScrollArea {border-style: none; padding: 0px}
)";

// %1 is the handle's colour, %2 the track's.
constexpr char horizontalScrollBar[] =
    R"(QScrollBar:horizontal { background: %2; border-radius: 9px; height: 18px; margin: 0px 15px 0 15px;}
QScrollBar::handle:horizontal {background: %1; border-radius: 9px; min-width: 25px;}
QScrollBar::add-line:horizontal {background: none; width: 15px; subcontrol-position: right; subcontrol-origin: margin;}
QScrollBar::sub-line:horizontal {background: none; width: 15px; subcontrol-position: left; subcontrol-origin: margin;}
QScrollBar:left-arrow:horizontal {image: url(:/MainButtons1/Left); width: 10px; height: 10px; background: none;}
QScrollBar:right-arrow:horizontal {image: url(:/MainButtons1/Right); width: 10px; height: 10px; background: none;}
)";
constexpr char verticalScrollBar[] =
    R"(QScrollBar:vertical { background: %2; border-radius: 9px; width: 18px; margin: 15px 0 15px 0px ;}
QScrollBar::handle:vertical {background: %1; border-radius: 9px; min-height: 25px;}
QScrollBar::add-line:vertical {background: none; height: 15px; subcontrol-position: bottom; subcontrol-origin: margin;}
QScrollBar::sub-line:vertical {background: none; height: 15px; subcontrol-position: top; subcontrol-origin: margin;}
)";
constexpr char hiddenArrows[] =
    R"(QScrollBar:up-arrow:vertical  {width: 0px; height: 0px;}
QScrollBar:down-arrow:vertical  {width: 0px; height: 0px;}
)";
constexpr char shownArrows[] =
    R"(QScrollBar:up-arrow:vertical  {image: url(:/MainButtons1/Up); width: 10px; height: 10px; background: none;}
QScrollBar:down-arrow:vertical  {image: url(:/MainButtons1/Down); width: 10px; height: 10px; background: none;}
)";
constexpr char scrollBarPages[] =
    R"(QScrollBar::add-page, QScrollBar::sub-page {background: none;}
QScrollBar::handle:hover {border: none}
QScrollBar::handle, QScrollBar::handle:pressed {border: 2px solid%2;}
)";

constexpr char windowFont[] = "QWidget{font: normal normal 12px 'ManualOrifice'}";

QString text(const char* literal) { return QString::fromLatin1(literal); }

QString button(const char* side, const char* edges, const char* image)
{
    return text(spinBoxButton).arg(text(side), text(edges), text(image));
}

QString withDisabledLook(const char* family) { return text(family).arg(text(disabledLook)); }

} // namespace

QString mainStyleSheet(const QString& scrollBars)
{
    return text(spinBoxes) + button("up", upButton, "Table Up") +
           button("down", downButton, "Table Down") + text(lineEdits) +
           withDisabledLook(comboBoxes) + scrollBars + text(frames) +
           withDisabledLook(toolButtons) + withDisabledLook(pushButtons) + text(checkBoxes) +
           text(buttonBoxes) + text(groupBoxes) + text(tabs) + text(toolBoxes) +
           text(progressBars) + text(sliders) + text(scrollAreas) + text(trees) + text(headers) +
           text(tables) + withDisabledLook(labels) + text(leds).arg(text(ledGradient)) +
           text(lists) + text(docks) + text(separators) + text(splitters) + text(sizeGrips) +
           text(toolTips) + text(menuBars) + text(bars) + text(scrollAreasAtLast);
}

QString mainStyleSheetStart() { return text(spinBoxes); }

QString scrollBarSheet(const QColor& track, const QColor& handle, bool hideArrows)
{
    return (text(horizontalScrollBar) + text(verticalScrollBar) +
            text(hideArrows ? hiddenArrows : shownArrows) + text(scrollBarPages))
        .arg(handle.name(), track.name());
}

QString windowSheet()
{
    return QStringLiteral(" QWidget{border-width: 2px; border-radius: 9px} \n QToolBar, QMenuBar, "
                          "QStatusBar {border-width: 1px; border-radius:0px} \n ") +
           text(windowFont);
}

QString windowFontSheet() { return text(windowFont); }

QString sizeButtonsSheet()
{
    return QStringLiteral(
        "QFrame {border-radius: 0px;border: 1px solid palette(midlight);  max-height: 25px} "
        "\nQFrame:disabled {border-color: #003D91 }\nQToolButton {border-style: "
        "none;                        max-width: 15px; min-width: 15px;    max-height: 15px; "
        "min-height: 15px}");
}

QString toolBarSheet()
{
    return QStringLiteral(
        "QToolButton:checked  {border-color: #c7d441 }                         "
        "QToolButton:pressed  {border: 2px solid #001C42; background-color: "
        "rgba(255,255,255, 115)}                         QToolButton:disabled {border-color: "
        "#003D91 }                         QToolButton:hover:!pressed  { border-color: "
        "palette(text)}                         QToolButton#qt_toolbar_ext_button "
        "{border-width:2px;                                                            "
        "max-height: 17px; max-width: "
        "17px;                                                            min-height: 17px; "
        "min-width: 17px}");
}
