#include "app/workbench/Theme.h"

#include "host/icons/HVIconStore.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QSettings>
#include <QStyle>
#include <QStyleOption>

#include <optional>

namespace workbench {

namespace {

const QString g_key = QStringLiteral("workbench/theme");

struct Colours
{
    QRgb window, base, alternate, text, faint, button, border, highlight, highlightedText, link, tip;
};

constexpr Colours g_light{0xfff3f4f6, 0xffffffff, 0xfff7f8fa, 0xff1f2328, 0xff8a929b, 0xffeceef1,
                          0xffc4c9d0, 0xff1f6fbf, 0xffffffff, 0xff0b62b8, 0xffffffff};
constexpr Colours g_dark{0xff262a30, 0xff181b1f, 0xff1f2328, 0xffe2e6ea, 0xff7d8590, 0xff2d3238,
                         0xff101214, 0xff2f81d6, 0xffffffff, 0xff79b8ff, 0xff2d3238};

QPalette makePalette(const Colours& c)
{
    QPalette palette(QColor(c.button), QColor(c.window));
    const auto set = [&](QPalette::ColorRole role, QRgb colour, QRgb disabled) {
        palette.setColor(role, QColor(colour));
        palette.setColor(QPalette::Disabled, role, QColor(disabled));
    };
    set(QPalette::Base, c.base, c.window);
    set(QPalette::AlternateBase, c.alternate, c.window);
    set(QPalette::Dark, c.border, c.border);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        set(role, c.text, c.faint);
    set(QPalette::PlaceholderText, c.faint, c.faint);
    set(QPalette::Highlight, c.highlight, c.faint);
    set(QPalette::HighlightedText, c.highlightedText, c.highlightedText);
    set(QPalette::Link, c.link, c.faint);
    set(QPalette::LinkVisited, c.link, c.faint);
    set(QPalette::ToolTipBase, c.tip, c.tip);
    return palette;
}

/// The style's own small icons are black or grey pictures that vanish on a dark ground; these follow the palette.
class LineIconStyle final : public QProxyStyle
{
public:
    using QProxyStyle::QProxyStyle;

    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override
    {
        switch (icon) {
        case SP_TitleBarCloseButton:
        case SP_DockWidgetCloseButton:
            return HVIconStore::icon(QStringLiteral("close_16"));
        case SP_TitleBarNormalButton:
            return HVIconStore::icon(QStringLiteral("cascade_24"));
        default:
            return QProxyStyle::standardIcon(icon, option, widget);
        }
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override
    {
        if (element != PE_IndicatorTabClose) {
            QProxyStyle::drawPrimitive(element, option, painter, widget);
            return;
        }
        if (option->state.testFlag(State_MouseOver))
            painter->fillRect(option->rect, option->palette.mid());
        HVIconStore::icon(QStringLiteral("close_16")).paint(painter, option->rect.adjusted(1, 1, -1, -1));
    }
};

} // namespace

Theme storedTheme()
{
    const QString name = QSettings().value(g_key).toString();
    if (name == QLatin1String("light"))
        return Theme::Light;
    return name == QLatin1String("dark") ? Theme::Dark : Theme::System;
}

void applyTheme(Theme theme)
{
    // What the desktop gave, seen before the first change.
    static const QString systemStyle = QApplication::style()->objectName();
    static const QPalette systemPalette = QApplication::palette();
    static std::optional<Theme> current;

    QSettings().setValue(g_key, theme == Theme::Light  ? QStringLiteral("light")
                                : theme == Theme::Dark ? QStringLiteral("dark")
                                                       : QStringLiteral("system"));
    if (std::exchange(current, theme) == theme)
        return;
    QApplication::setStyle(new LineIconStyle(theme == Theme::System ? systemStyle : QStringLiteral("Fusion")));
    switch (theme) {
    case Theme::System:
        QApplication::setPalette(systemPalette);
        break;
    case Theme::Light:
        QApplication::setPalette(makePalette(g_light));
        break;
    case Theme::Dark:
        QApplication::setPalette(makePalette(g_dark));
        break;
    }
}

} // namespace workbench
