#pragma once

class QDomElement;

/// What a window keeps of itself in the session file, so that the application opens it again as it was. GUI thread.
class HVObjectSerialization
{
public:
    virtual ~HVObjectSerialization() = default;

    /// Appends the object's own element to `element`, which belongs to a document; false when nothing could be kept.
    virtual bool SaveObjectSession(QDomElement& element) const = 0;
    /// Takes the state from the element that SaveObjectSession() filled; false when it cannot be restored.
    virtual bool LoadObjectSession(const QDomElement& element) = 0;
};
