#include "module/Bindings.h"
#include "module/gui/Construction.h"
#include "module/gui/Property.h"

#include <QLabel>
#include <QStyle>
#include <QWindow>

namespace python {

namespace {

using QLabelIndirect = Indirect<QLabel>;
using PyLabel = Wrapper<QLabelIndirect>;

constexpr ConstructorArguments g_arguments = {{"text", "text"}, {"parent", "parentWidget"}};

QIcon icon(QLabel& label)
{
    return {label.pixmap(Qt::ReturnByValue)};
}

/// Pictures made of pixels show as large as they are, drawings as large as the icons of dialogs.
void setIcon(QLabel& label, const QIcon& icon)
{
    QSize size;
    for (const QSize& each : icon.availableSizes())
        size = size.expandedTo(each);
    if (size.isEmpty()) {
        const int side = label.style()->pixelMetric(QStyle::PM_LargeIconSize, nullptr, &label);
        size = QSize(side, side);
    }
    label.setPixmap(icon.pixmap(label.window()->windowHandle(), size));
}

PyGetSetDef g_properties[] = {
    property<&QLabel::text, &QLabel::setText>("text", "str: The text. It takes the place of the icon."),
    property<&QLabel::textFormat, &QLabel::setTextFormat>(
        "textFormat", "TextFormat: Whether the text is shown as it is, read as HTML, or whichever it looks like."),
    property<&QLabel::wordWrap, &QLabel::setWordWrap>("wordWrap", "bool: Whether long lines are broken between words."),
    property<&QLabel::alignment, &QLabel::setAlignment>(
        "alignment", "Align | int: Where the text or the icon stands, `Align.Right | Align.Top`."),
    property<icon, setIcon>(
        "icon",
        "Icon: A picture in place of the text, as large as its file; None takes it away. Reading gives a copy."),
    property<&QLabel::hasScaledContents, &QLabel::setScaledContents>(
        "scaledContents", "bool: Whether the icon is stretched over the whole label."),
};

} // namespace

void bindLabel()
{
    bindBase<QLabel>("_QLabel", "What labels have.");
    installProperties<QLabel>(g_properties);
    bindPublic<QLabel>("Label",
                       "Label(text: str = '', parent: Widget = None, **properties)\n\nA text or a picture to look at.");
    bindConstructor<PyLabel, g_arguments>(
        "__init__(text: str = '', parent: Widget = None, **properties) -> None\n\nA label; icon and the other "
        "properties go by name.");
}

} // namespace python
