#pragma once

#include "host/kinds/TypedKind.h"

#include <QDateTime>

namespace hv {

/// What is known of a file whose content nobody here reads.
struct PlainFile
{
    qint64 size = 0;
    QDateTime modified;
};

/// Kinds of which the program knows that there are files; values are PlainFile, and nothing writes them.
class PlainKind final : public TypedKind<PlainFile>
{
public:
    explicit PlainKind(const ObjectKindInfo& info) : m_info(info) {}

    const ObjectKindInfo& info() const override { return m_info; }
    Result<ObjectValue> read(const QString& path) const override;
    Result<void> write(const ObjectValue& value, const QString& path) const override;

protected:
    std::vector<Description> rows(const PlainFile& file) const override;

private:
    ObjectKindInfo m_info;
};

} // namespace hv
