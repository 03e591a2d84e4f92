#pragma once

#include <QLatin1String>
#include <QMetaType>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// The kinds of object that a project holds. The numbers are stored in files and exchanged with scripts: they never
/// change. The gaps were kinds that no longer exist.
enum class ObjectKind : int
{
    Volume = 1,
    Layer = 6,
    RandomLine = 7,
    ColorBar = 18,
    Geobody = 27,
    Fault3d = 28,
    Horizon3d = 29,
    Survey = 32,
    Well = 33,
    ExtractionArea = 35,
    Model = 36,
    Culture = 45,
    Wavelet = 49,
    MultiZ = 50,
    Crs = 86,
    Horizon2d = 88,
    Fault2d = 89,
    RandomLineSet = 91,
    Polyline3d = 94,
    PythonScript = 97, ///< not offered to scripts
};
Q_DECLARE_METATYPE(ObjectKind)

/// How objects of one kind are filed and shown.
struct ObjectKindInfo
{
    ObjectKind kind;
    const char* singular; ///< also the default name of a new object
    const char* plural;
    const char* folder;   ///< below the project's folder
    const char* suffixes; ///< separated by spaces, in lower case; new files take the first
    const char* icon;     ///< for HVIconStore

    /// The first suffix, with its point.
    QString suffix() const;
    /// The object's name when `fileName` (without folders) has a suffix of this kind, else empty.
    QString objectName(const QString& fileName) const;
    /// Of two files of one name the one with the first suffix is the object, else the one before in the alphabet.
    bool prefers(const QString& suffix, const QString& other) const;
};

/// All kinds, in the order in which they are listed and shown; see Kinds.cpp.
const std::vector<ObjectKindInfo>& objectKinds();
const ObjectKindInfo& objectKindInfo(ObjectKind kind);
/// Empty for a number that is no kind.
std::optional<ObjectKind> objectKindFromNumber(int number);
