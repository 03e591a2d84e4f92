#pragma once

#include <QRectF>
#include <QString>

class QFont;
class QImage;
class QPainter;
class QPalette;
class QSize;

/// What is painted of an object: a page with a size of its own. Holds what it paints, so it stays right whatever
/// becomes of the object; GUI thread, or a QImage on any.
class ObjectPicture
{
public:
    virtual ~ObjectPicture() = default;

    /// The page, in its own units, y downwards. Not empty.
    virtual QRectF page() const = 0;
    /// True for a page that is made of text: it is not enlarged to fill a viewer.
    virtual bool isText() const { return false; }
    /// The painter is in page units; `font` and `palette` are the viewer's.
    virtual void paint(QPainter& painter, const QFont& font, const QPalette& palette) const = 0;
    /// What a position on the page is, as shown to the user; empty when there is nothing to say.
    virtual QString positionText(QPointF position) const;
};

namespace hv {

/// The whole page on white, as large as fits into `size`.
QImage imageOf(const ObjectPicture& picture, const QSize& size);

} // namespace hv
