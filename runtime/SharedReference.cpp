#include "runtime/SharedReference.h"

#include "runtime/GilLock.h"
#include "runtime/Remains.h"

namespace python {

SharedReference::SharedReference(const boost::python::object& object) : m_holder(std::make_shared<Holder>(object.ptr()))
{}

SharedReference::Holder::~Holder()
{
    if (!object)
        return;
    const LateGilLock lock;
    if (lock)
        Remains::releaseLater(Ref::steal(object));
}

} // namespace python
