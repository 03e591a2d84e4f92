#pragma once

#include "host/core/Result.h"
#include "host/kinds/ObjectKind.h"
#include "host/kinds/ObjectValue.h"

#include <QDateTime>

#include <memory>
#include <vector>

class ObjectPicture;

/// host/kinds: what the objects of each kind are: their files, values, pictures and descriptions. A folder per kind,
/// and a line in Kinds.cpp; ARCHITECTURE.md shows how one is added.

namespace hv {

/// A line of what is said about an object: "Range", "-5000 to 5000".
struct Description
{
    QString label;
    QString text;
};

/// What can be said of any file.
std::vector<Description> describeFile(qint64 size, const QDateTime& modified);

/// An object of the demonstration project.
struct DemoObject
{
    QString name;
    ObjectValue value;
    QString directory = {}; ///< the virtual directory that it is filed in; empty for none
};

/// One kind of object. Constant and without state: any thread may call any function but picture().
class IObjectKind
{
public:
    virtual ~IObjectKind() = default;

    virtual const ObjectKindInfo& info() const = 0;

    /// Whether values are so large that an object has one only while somebody looks at it, and reads it again for the
    /// next.
    virtual bool isLarge() const { return false; }
    /// Whether values go on reading the file that they come from: another file needs another value, even of the same
    /// content.
    virtual bool readsFile() const { return false; }
    /// The value that a file holds. A failure is one sentence that names the file.
    virtual Result<ObjectValue> read(const QString& path) const = 0;
    /// Replaces the file as a whole, or leaves it as it was.
    virtual Result<void> write(const ObjectValue& value, const QString& path) const = 0;

    /// What viewers paint; null for kinds without a picture of their own, which are shown by what is said of them.
    virtual std::unique_ptr<ObjectPicture> picture(const ObjectValue& value) const;
    /// What there is to say about a value, most important first.
    virtual std::vector<Description> describe(const ObjectValue& value) const = 0;
    /// What the demonstration project has of the kind, made from SyntheticSurvey and the same in every run.
    virtual std::vector<DemoObject> demo() const;
};

const IObjectKind& objectKind(ObjectKind kind);

/// Lists a kind of the application's own after the others: at its start, before anything else asks for kinds. False,
/// and nothing is added, when its number, its folder or one of its suffixes is another kind's.
bool addObjectKind(std::unique_ptr<const IObjectKind> kind);

} // namespace hv
