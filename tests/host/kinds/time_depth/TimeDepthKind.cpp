#include "tests/host/kinds/time_depth/TimeDepthKind.h"

#include <QObject>
#include <QPainter>
#include <QPolygonF>

namespace hv {

namespace {

/// Depth downwards over time.
class TimeDepthPicture final : public ObjectPicture
{
public:
    explicit TimeDepthPicture(std::shared_ptr<const TimeDepth> value) : m_value(std::move(value)) {}
    QRectF page() const override { return {0, 0, 4000, 4000}; }
    void paint(QPainter& painter, const QFont& /*font*/, const QPalette& /*palette*/) const override
    {
        painter.setPen(QPen(Qt::darkBlue, 40));
        painter.drawPolyline(QPolygonF(QVector<QPointF>(m_value->pairs.begin(), m_value->pairs.end())));
    }

private:
    const std::shared_ptr<const TimeDepth> m_value;
};

} // namespace

const ObjectKindInfo& TimeDepthKind::info() const
{
    static const ObjectKindInfo info{number, "Time-Depth Curve", "Time-Depth Curves", "time-depth", "tdc", "chart_24"};
    return info;
}

Result<ObjectValue> TimeDepthKind::parse(const QByteArray& text) const
{
    TimeDepth value{text, {}};
    int line = 0;
    for (const QByteArray& row : text.split('\n')) {
        ++line;
        const QList<QByteArray> words = row.simplified().split(' ');
        if (words == QList<QByteArray>{""})
            continue;
        bool hasTime = false;
        bool hasDepth = false;
        value.pairs.emplace_back(words.first().toDouble(&hasTime), words.last().toDouble(&hasDepth));
        if (words.size() != 2 || !hasTime || !hasDepth)
            return Failure(QObject::tr("line %1: it is no time and depth").arg(line), {}, line);
    }
    if (value.pairs.empty())
        return Failure(QObject::tr("it has no times and depths"));
    return ObjectValue::of(std::move(value));
}

std::unique_ptr<ObjectPicture> TimeDepthKind::makePicture(std::shared_ptr<const TimeDepth> value) const
{
    return std::make_unique<TimeDepthPicture>(std::move(value));
}

std::vector<Description> TimeDepthKind::rows(const TimeDepth& value) const
{
    const QPointF last = value.pairs.back();
    return {{QObject::tr("Pairs"), QString::number(value.pairs.size())},
            {QObject::tr("Last"), QObject::tr("%1 ms at %2 m").arg(last.x()).arg(last.y())}};
}

std::vector<DemoObject> TimeDepthKind::demo() const
{
    return {{QStringLiteral("S-1"), *parse("0 0\n1000 850\n2000 2100\n")}};
}

} // namespace hv
