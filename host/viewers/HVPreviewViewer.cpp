#include "host/viewers/HVPreviewViewer.h"

#include "host/kinds/ObjectPicture.h"
#include "host/objects/DataObject.h"
#include "host/viewers/ObjectPage.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QWheelEvent>

namespace {

constexpr double g_zoomStep = 1.25;
/// How far from the fitting scale one may go, in and out.
constexpr double g_mostZoom = 1000.0;
constexpr int g_leastBand = 4; // pixels; less is a click
constexpr int g_frame = 1;

} // namespace

HVPreviewViewer::HVPreviewViewer(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAccessibleName(tr("Preview"));
    updateCursor();
}

HVPreviewViewer::~HVPreviewViewer() = default;

void HVPreviewViewer::showObject(std::shared_ptr<hv::DataObject> object)
{
    if (!object && !m_picture)
        return;
    if (m_object)
        m_object->disconnect(this);
    m_object = std::move(object);
    m_isStale = false;
    m_picture = m_object ? hv::makeObjectPage(*m_object) : nullptr;
    if (m_object)
        connect(m_object.get(), &hv::DataObject::changed, this, [this] {
            m_isStale = true;
            if (isVisible())
                showChanged();
        });
    startAnew();
    Q_EMIT pictureChanged();
}

void HVPreviewViewer::startAnew()
{
    m_selection = {};
    m_cross.reset();
    m_dragButton = Qt::NoButton;
    m_band = {};
    fit();
}

void HVPreviewViewer::showChanged()
{
    m_isStale = false;
    const QRectF before = m_picture->page();
    m_picture = hv::makeObjectPage(*m_object);
    if (m_picture->page() == before) {
        update();
        return;
    }
    const bool wasSelected = !m_selection.isEmpty();
    startAnew();
    if (wasSelected)
        Q_EMIT selectionChanged(m_selection);
}

void HVPreviewViewer::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (m_isStale)
        showChanged();
}

void HVPreviewViewer::setHint(const QString& hint)
{
    m_hint = hint;
    update();
}

hv::Result<void> HVPreviewViewer::setMouseMode(HVMouseMode mode)
{
    if (const auto action = hv::viewerAction(mode); !action)
        return action.failure();
    if (mode == m_mode)
        return {};
    m_mode = mode;
    m_dragButton = Qt::NoButton;
    m_band = {};
    updateCursor();
    update();
    Q_EMIT mouseModeChanged(mode);
    return {};
}

void HVPreviewViewer::updateCursor()
{
    switch (m_mode) {
    case HVMouseMode::Translation:
        setCursor(m_dragButton == Qt::NoButton ? Qt::OpenHandCursor : Qt::ClosedHandCursor);
        break;
    case HVMouseMode::SquareSelection:
    case HVMouseMode::CrossNavigation:
    case HVMouseMode::Zoom:
        setCursor(Qt::CrossCursor);
        break;
    default:
        unsetCursor();
    }
}

QTransform HVPreviewViewer::pageToViewer() const
{
    return QTransform(m_scale, 0, 0, m_scale, m_origin.x(), m_origin.y());
}

QPointF HVPreviewViewer::toPage(QPointF viewer) const
{
    return (viewer - m_origin) / m_scale;
}

double HVPreviewViewer::fittingScale() const
{
    if (!m_picture)
        return 1.0;
    const QRectF page = m_picture->page();
    const double scale = std::min(std::max(1, width() - 2 * g_frame) / page.width(),
                                  std::max(1, height() - 2 * g_frame) / page.height());
    return m_picture->isText() ? std::min(1.0, scale) : scale;
}

void HVPreviewViewer::fit()
{
    m_scale = fittingScale();
    m_isFitted = true;
    if (m_picture)
        m_origin = QPointF(width() / 2.0, height() / 2.0) - m_picture->page().center() * m_scale;
    update();
}

void HVPreviewViewer::setScale(double scale)
{
    const double fitting = fittingScale();
    m_scale = std::clamp(scale, fitting / g_mostZoom, fitting * g_mostZoom);
    m_isFitted = false;
}

void HVPreviewViewer::zoom(double factor, QPointF at)
{
    if (!m_picture)
        return;
    const QPointF page = toPage(at);
    setScale(m_scale * factor);
    m_origin = at - page * m_scale;
    update();
}

void HVPreviewViewer::moveBy(QPointF viewerPixels)
{
    m_origin += viewerPixels;
    m_isFitted = false;
    update();
}

void HVPreviewViewer::moveCross(QPointF page)
{
    m_cross = page;
    update();
    Q_EMIT crossMoved(page);
}

QSize HVPreviewViewer::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 44, fontMetrics().height() * 14};
}

QSize HVPreviewViewer::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 16, fontMetrics().height() * 5};
}

void HVPreviewViewer::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    if (m_picture) {
        painter.save();
        painter.setTransform(pageToViewer(), true);
        painter.setRenderHint(QPainter::Antialiasing);
        m_picture->paint(painter, font(), palette());
        painter.restore();
        paintMarks(painter);
    } else if (!m_hint.isEmpty()) {
        painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
        painter.drawText(rect().adjusted(8, 8, -8, -8), Qt::AlignCenter | Qt::TextWordWrap, m_hint);
    }
    // Styles fill a frame with the painter's brush.
    painter.setBrush(Qt::NoBrush);
    QStyleOptionFrame frame;
    frame.initFrom(this);
    frame.lineWidth = g_frame;
    frame.state |= QStyle::State_Sunken;
    if (hasFocus()) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    } else {
        style()->drawPrimitive(QStyle::PE_Frame, &frame, &painter, this);
    }
}

void HVPreviewViewer::paintMarks(QPainter& painter) const
{
    const QColor color = palette().color(QPalette::Highlight);
    QColor fill = color;
    fill.setAlpha(45);
    painter.setPen(color);
    painter.setBrush(fill);
    if (!m_selection.isEmpty())
        painter.drawRect(pageToViewer().mapRect(m_selection));
    if (!m_band.isEmpty()) {
        painter.setPen(QPen(color, 1, Qt::DashLine));
        painter.drawRect(m_band);
    }
    if (!m_cross)
        return;
    const QPointF at = pageToViewer().map(*m_cross);
    painter.setPen(color);
    painter.drawLine(QPointF(at.x(), 0), QPointF(at.x(), height()));
    painter.drawLine(QPointF(0, at.y()), QPointF(width(), at.y()));
    const QString text = m_picture->positionText(*m_cross);
    if (text.isEmpty())
        return;
    const QSize size = fontMetrics().size(Qt::TextSingleLine, text) + QSize(8, 4);
    const QRect place(QPoint(4, height() - 4 - size.height()), size);
    painter.fillRect(place, palette().color(QPalette::ToolTipBase));
    painter.setPen(palette().color(QPalette::ToolTipText));
    painter.drawText(place, Qt::AlignCenter, text);
}

void HVPreviewViewer::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (m_isFitted) {
        fit();
        return;
    }
    // What was in the middle stays there.
    if (event->oldSize().isValid())
        m_origin += QPointF(event->size().width() - event->oldSize().width(),
                            event->size().height() - event->oldSize().height()) /
                    2.0;
}

void HVPreviewViewer::wheelEvent(QWheelEvent* event)
{
    if (!m_picture) {
        event->ignore();
        return;
    }
    zoom(std::pow(g_zoomStep, event->angleDelta().y() / 120.0), event->position());
    event->accept();
}

void HVPreviewViewer::mousePressEvent(QMouseEvent* event)
{
    const bool isMine = event->button() == Qt::LeftButton || event->button() == Qt::MiddleButton;
    if (!m_picture || !isMine || m_dragButton != Qt::NoButton) {
        event->ignore();
        return;
    }
    m_dragButton = event->button();
    m_pressed = m_last = event->localPos();
    if (m_dragButton == Qt::LeftButton && m_mode == HVMouseMode::CrossNavigation)
        moveCross(toPage(m_pressed));
    updateCursor();
}

void HVPreviewViewer::mouseMoveEvent(QMouseEvent* event)
{
    if (m_dragButton == Qt::NoButton)
        return;
    const QPointF at = event->localPos();
    if (m_dragButton == Qt::MiddleButton || m_mode == HVMouseMode::Translation) {
        moveBy(at - m_last);
    } else if (m_mode == HVMouseMode::CrossNavigation) {
        moveCross(toPage(at));
    } else if (m_mode == HVMouseMode::SquareSelection || m_mode == HVMouseMode::Zoom) {
        m_band = QRectF(m_pressed, at).normalized();
        update();
    }
    m_last = at;
}

void HVPreviewViewer::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != m_dragButton) {
        event->ignore();
        return;
    }
    m_dragButton = Qt::NoButton;
    updateCursor();
    const QRectF band = std::exchange(m_band, {});
    if (event->button() != Qt::LeftButton)
        return;
    const bool isClick = std::max(band.width(), band.height()) < g_leastBand;
    if (m_mode == HVMouseMode::Selection) {
        Q_EMIT positionSelected(toPage(event->localPos()));
    } else if (m_mode == HVMouseMode::SquareSelection) {
        // A click beside the rectangle takes it back.
        m_selection = isClick ? QRectF() : pageToViewer().inverted().mapRect(band);
        Q_EMIT selectionChanged(m_selection);
    } else if (m_mode == HVMouseMode::Zoom) {
        if (isClick) {
            zoom(event->modifiers().testFlag(Qt::ShiftModifier) ? 1.0 / g_zoomStep : g_zoomStep, event->localPos());
        } else {
            const QPointF center = toPage(band.center());
            setScale(m_scale *
                     std::min(width() / std::max(1.0, band.width()), height() / std::max(1.0, band.height())));
            m_origin = QPointF(width() / 2.0, height() / 2.0) - center * m_scale;
        }
    }
    update();
}

void HVPreviewViewer::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (m_picture && event->button() == Qt::LeftButton && m_mode != HVMouseMode::CrossNavigation)
        fit();
}

void HVPreviewViewer::keyPressEvent(QKeyEvent* event)
{
    const double step = fontMetrics().height() * 2.0;
    switch (event->key()) {
    case Qt::Key_Plus:
        zoom(g_zoomStep, rect().center());
        return;
    case Qt::Key_Minus:
        zoom(1.0 / g_zoomStep, rect().center());
        return;
    case Qt::Key_0:
        fit();
        return;
    case Qt::Key_Left:
        moveBy({step, 0});
        return;
    case Qt::Key_Right:
        moveBy({-step, 0});
        return;
    case Qt::Key_Up:
        moveBy({0, step});
        return;
    case Qt::Key_Down:
        moveBy({0, -step});
        return;
    case Qt::Key_Escape:
        // With nothing to take back the key is the dialog's.
        if (m_dragButton == Qt::NoButton && m_selection.isEmpty() && !m_cross)
            break;
        m_dragButton = Qt::NoButton;
        m_band = {};
        m_cross.reset();
        updateCursor();
        update();
        if (!std::exchange(m_selection, {}).isEmpty())
            Q_EMIT selectionChanged(m_selection);
        return;
    default:
        break;
    }
    QWidget::keyPressEvent(event);
}

void HVPreviewViewer::focusOutEvent(QFocusEvent* event)
{
    m_dragButton = Qt::NoButton;
    m_band = {};
    updateCursor();
    QWidget::focusOutEvent(event);
}
