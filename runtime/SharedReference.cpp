#include "runtime/SharedReference.h"

#include "runtime/GilLock.h"

namespace python {

SharedReference::SharedReference(const boost::python::object& object) : m_holder(std::make_shared<Holder>(object.ptr()))
{}

SharedReference::Holder::~Holder()
{
    const LateGilLock lock;
    if (lock)
        clear();
}

} // namespace python
