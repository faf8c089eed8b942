#include "workbench/shell/theme.h"

#include "hostkit/structures/registry.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>

#include <cmath>
#include <map>
#include <string>

namespace workbench::theme {

namespace {

// What panels measure in pixels or points. The frame width stays: it is a line.
constexpr const char* dimensions[] = {"$INTERFACE_SPACE_DIM", "$INTERFACE_CURSOR_DIM", "$INTERFACE_BUTTON_DIM_SML",
    "$INTERFACE_BUTTON_DIM_BIG", "$INTERFACE_LIST_DIM_SML", "$INTERFACE_LIST_DIM_ARROW", "$INTERFACE_VAL_DIM_SML",
    "$INTERFACE_VAL_DIM_MID", "$INTERFACE_TITLE_DIM_SML", "$INTERFACE_NUM_BIG", "$INTERFACE_TITLE_FONT_SCALE",
    "$INTERFACE_TOOL_FONT_SCALE"};

constexpr double usualPointSize = 9;

// As they are at 100 percent.
short usualDimension(const char* name)
{
    static std::map<std::string, short> usual;
    return usual.emplace(name, hostkit::Variable<short>(name)).first->second;
}

Colors panelColor(QRgb color)
{
    return {static_cast<unsigned char>(qRed(color)), static_cast<unsigned char>(qGreen(color)),
        static_cast<unsigned char>(qBlue(color))};
}

QPalette palette()
{
    QPalette result;
    const auto set = [&](QRgb color, std::initializer_list<QPalette::ColorRole> roles) {
        for (const auto role : roles)
            result.setColor(role, QColor(color));
    };
    set(panel, {QPalette::Window, QPalette::AlternateBase});
    set(surround, {QPalette::Base, QPalette::Dark, QPalette::Shadow});
    set(raised, {QPalette::Button, QPalette::ToolTipBase});
    set(line, {QPalette::Light, QPalette::Midlight, QPalette::Mid});
    set(text,
        {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText, QPalette::BrightText});
    set(quietText, {QPalette::PlaceholderText});
    set(accent, {QPalette::Highlight, QPalette::Link});
    result.setColor(QPalette::HighlightedText, QColor(0xffffffff));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        result.setColor(QPalette::Disabled, role, QColor(0xff62696f));
    return result;
}

QString name(QRgb color)
{
    return QColor(color).name();
}

QString styleSheet(double pointSize)
{
    const QString rules = QStringLiteral(R"(
        QWidget { font-size: %8pt; }
        QMenuBar { background: %1; padding: 2px 4px; }
        QMenuBar::item { padding: 4px 8px; border-radius: 3px; background: transparent; }
        QMenuBar::item:selected, QMenu::item:selected { background: %2; }
        QMenu { background: %1; border: 1px solid %3; padding: 4px; }
        QMenu::item { padding: 4px 24px 4px 24px; border-radius: 3px; }
        QMenu::item:disabled { color: #62696f; }
        QMenu::separator { height: 1px; background: %3; margin: 4px 8px; }
        QStatusBar { background: %1; border-top: 1px solid %4; }
        QStatusBar::item { border: none; }
        QSplitter::handle { background: %4; }
        QSplitter::handle:hover { background: %5; }
        QScrollArea { border: none; }
        QScrollBar:vertical { background: %1; width: 10px; margin: 0; }
        QScrollBar::handle:vertical { background: %3; border-radius: 4px; min-height: 24px; margin: 1px; }
        QScrollBar::handle:vertical:hover { background: #4a525b; }
        QScrollBar::add-line, QScrollBar::sub-line { height: 0; width: 0; }
        QScrollBar::add-page, QScrollBar::sub-page { background: none; }
        QSlider::groove:horizontal { height: 4px; background: %3; border-radius: 2px; }
        QSlider::groove:vertical { width: 4px; background: %3; border-radius: 2px; }
        QSlider::sub-page:horizontal { background: %5; border-radius: 2px; }
        QSlider::handle { background: %6; border-radius: 6px; }
        QSlider::handle:horizontal { width: 12px; margin: -4px 0; }
        QSlider::handle:vertical { height: 12px; margin: 0 -4px; }
        QSlider::handle:hover { background: #ffffff; }
        QSlider::handle:disabled, QSlider::sub-page:disabled { background: %3; }
        QProgressBar { background: %4; border: none; border-radius: 3px; max-height: 8px; }
        QProgressBar::chunk { background: %5; border-radius: 3px; }
        QPushButton { background: %2; border: 1px solid %3; border-radius: 3px; padding: 4px 12px; }
        QPushButton:hover { background: #343a41; }
        QPushButton:default { border-color: %5; }
        QToolButton { color: %7; border: 1px solid transparent; border-radius: 3px; padding: 2px 8px; }
        QFileDialog QToolButton { padding: 2px; }
        QToolButton:hover { background: %2; }
        QToolButton:checked { background: %2; border-color: %3; color: %6; }
        QToolButton:disabled { color: #62696f; }
        QLabel[role="title"] { color: %7; font-weight: bold; }
        QLabel[role="quiet"] { color: %7; }
        QLabel[role="problem"] { color: %9; }
        QToolTip { background: %2; color: %6; border: 1px solid %3; padding: 3px; }
    )");
    return rules.arg(name(panel), name(raised), name(line), name(surround), name(accent), name(text), name(quietText),
        QString::number(pointSize), name(warning));
}

}

void apply()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(palette());
    qApp->setStyleSheet(styleSheet(usualPointSize));
}

hostkit::Panel_Look panelLook()
{
    return {.frame = panelColor(line), .back = panelColor(panel), .text = panelColor(text)};
}

// Lists write in yellow, blue, black and dark red; a middle grey is where all of them can be read.
hostkit::Panel_Look listLook()
{
    return {.frame = {0x5c, 0x63, 0x6b}, .back = {0x95, 0x9b, 0xa2}, .text = {0x14, 0x18, 0x1c}};
}

void setInterfaceSize(int percent)
{
    const double scale = percent / 100.0;
    for (const char* dimension : dimensions) {
        const short usual = usualDimension(dimension);
        hostkit::Variable<short>(dimension) = static_cast<short>(std::lround(usual * scale));
    }
    qApp->setStyleSheet(styleSheet(usualPointSize * scale)); // fonts that are set otherwise yield to a style sheet
}

}
