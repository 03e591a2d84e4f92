#include "module/data/RandomLineSection.h"

#include "module/Bindings.h"
#include "module/core/ArrayInstance.h"
#include "runtime/Errors.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

namespace {

/// One number of each trace.
template <double hv::SectionTrace::*Member>
bp::object numbers(const RandomLineSection& self)
{
    core::Array<double>* array = nullptr;
    bp::object result = owned(ArrayInstance<double>::make(array));
    const auto count = static_cast<std::int64_t>(self.traces.size());
    if (!array || !array->resize(count))
        raise(PyExc_MemoryError, "RandomLineSection, not enough memory for %zu traces", self.traces.size());
    for (std::int64_t i = 0; i < count; ++i)
        (*array)[i] = self.traces[static_cast<std::size_t>(i)].*Member;
    return result;
}

} // namespace

void bindRandomLineSection()
{
    using hv::SectionTrace;
    bp::class_<RandomLineSection, std::shared_ptr<RandomLineSection>, boost::noncopyable>(
        "RandomLineSection",
        "A vertical section of a volume along a random line: a row of traces, and where each of them lies. "
        "RandomLine.section() gives it.",
        bp::no_init)
        .add_property(
            "image", +[](const RandomLineSection& self) { return self.image; },
            "Image2d: As wide as there are traces, samples downwards; numpy.asarray(image) is of shape (sample, "
            "trace). The volume's noValue where the line is outside of it. Read-only.")
        .add_property("distances", numbers<&SectionTrace::distance>,
                      "DoubleArray: The distance of each trace from the first node along the line, in the unit of the "
                      "volume's map coordinates. Read-only.")
        .add_property("inlines", numbers<&SectionTrace::inlineNumber>,
                      "DoubleArray: The inline number of each trace, not rounded. Read-only.")
        .add_property("crosslines", numbers<&SectionTrace::crossline>,
                      "DoubleArray: The crossline number of each trace, not rounded. Read-only.")
        .add_property("x", numbers<&SectionTrace::x>, "DoubleArray: Map x of each trace. Read-only.")
        .add_property("y", numbers<&SectionTrace::y>, "DoubleArray: Map y of each trace. Read-only.")
        .def(
            "__len__", +[](const RandomLineSection& self) { return self.traces.size(); }, bp::args("self"),
            "__len__() -> int\n\nThe number of traces.");
}

} // namespace python
