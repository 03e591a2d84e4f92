#pragma once

#include "host/kinds/ObjectKind.h"

#include <QRectF>
#include <QString>

#include <memory>

class QFont;
class QPainter;
class QPalette;

/// What a viewer paints of an object: a page with a size of its own.
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

/// The picture of an object file: a colour bar with its values, the outline of a culture, else the file's properties
/// and the beginning of its text. Never null: what cannot be read is said on the page. Reads the file, up to some
/// megabytes.
std::unique_ptr<ObjectPicture> makeObjectPicture(ObjectKind kind, const QString& path);
