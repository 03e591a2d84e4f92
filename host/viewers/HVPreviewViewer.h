#pragma once

#include "host/viewers/HVMouseMode.h"

#include <QTransform>
#include <QWidget>

#include <memory>
#include <optional>

class ObjectPicture;

namespace hv {
class DataObject;
}

/// host/viewers: windows that show objects of the project, and what they paint.

/// Shows one object of the project, as it is: when it changes the picture is made anew, in a hidden viewer as soon as
/// it is shown; zoom, rectangle and cross stay where the page has kept its size.
///
/// The left button does what the mouse mode says: chooses a position (Selection), draws a rectangle (SquareSelection),
/// moves the cross (CrossNavigation), moves the page (Translation), draws the rectangle to zoom to (Zoom). In every
/// mode the middle button moves the page, the wheel zooms at the pointer, a double click shows the whole page; the keys
/// + - 0 zoom, arrows move, Escape takes back the rectangle and the cross.
///
/// Positions and rectangles are in units of the picture's page, y downwards.
class HVPreviewViewer : public QWidget
{
    Q_OBJECT

public:
    explicit HVPreviewViewer(QWidget* parent = nullptr);
    ~HVPreviewViewer() override;

    /// Null shows nothing but the hint, when there is one. The viewer keeps the object alive.
    void showObject(std::shared_ptr<hv::DataObject> object);
    void setHint(const QString& hint);
    const ObjectPicture* picture() const { return m_picture.get(); }

    HVMouseMode mouseMode() const { return m_mode; }
    /// Fails, with the mode unchanged, for a mode that no viewer action stands for.
    hv::Result<void> setMouseMode(HVMouseMode mode);

    /// Viewer pixels per page unit, and where the page's origin is.
    double scale() const { return m_scale; }
    QTransform pageToViewer() const;
    /// The whole page, centred.
    void fit();
    /// `at` stays where it is on the screen.
    void zoom(double factor, QPointF at);

    /// Empty when nothing is selected.
    QRectF selection() const { return m_selection; }
    std::optional<QPointF> cross() const { return m_cross; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// Another object's picture is shown, or none.
    void pictureChanged();
    void mouseModeChanged(HVMouseMode mode);
    void positionSelected(QPointF position);
    void selectionChanged(QRectF selection);
    void crossMoved(QPointF position);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void showChanged();
    void startAnew();
    QPointF toPage(QPointF viewer) const;
    void moveBy(QPointF viewerPixels);
    void setScale(double scale);
    double fittingScale() const;
    void moveCross(QPointF page);
    void paintMarks(QPainter& painter) const;
    void updateCursor();

    std::unique_ptr<ObjectPicture> m_picture;
    std::shared_ptr<hv::DataObject> m_object;
    bool m_isStale = false; // it has changed while the viewer was hidden
    QString m_hint;
    HVMouseMode m_mode = HVMouseMode::Selection;
    double m_scale = 1.0;
    QPointF m_origin; // of the page, in the viewer
    bool m_isFitted = true;
    Qt::MouseButton m_dragButton = Qt::NoButton;
    QPointF m_pressed;
    QPointF m_last;
    QRectF m_band;      // under way, viewer pixels
    QRectF m_selection; // page units
    std::optional<QPointF> m_cross;
};
