#pragma once

#include <memory>

class ObjectPicture;

namespace hv {

class DataObject;

/// The page of an object as it is now: its kind's picture of it, else its properties and the beginning of its text.
/// Never null: what cannot be read is said on the page. Asks for the object's value, unless its file is very
/// large and would be read as a whole.
std::unique_ptr<ObjectPicture> makeObjectPage(DataObject& object);

} // namespace hv
