#pragma once

#include <QIconEngine>
#include <QString>

/// Draws one SVG resource, its "currentColor" replaced by a colour of the application's palette: disabled icons pale,
/// selected ones in the colour of selected text. Pixmaps are kept in QPixmapCache by file, colour and size in pixels.
class HVSvgIconEngine final : public QIconEngine
{
public:
    /// `accent` is "light theme colour/dark theme colour" as #rrggbb for icons that carry a meaning by colour, or
    /// empty.
    HVSvgIconEngine(QString file, QString accent);

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    /// `size` is in device pixels, as QIcon asks for it.
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QIconEngine* clone() const override;
    QString key() const override;
    QString iconName() const override;

private:
    QColor colour(QIcon::Mode mode) const;

    QString m_file;
    QString m_accent;
};
