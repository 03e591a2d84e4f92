#pragma once

#include <memory>
#include <typeinfo>
#include <utility>

namespace hv {

/// What an object of a project holds, whatever its kind: a shared value that nobody changes any more. Copies share
/// it; any thread may read it for as long as it keeps one.
class ObjectValue
{
public:
    ObjectValue() = default;
    template <class T>
    ObjectValue(std::shared_ptr<const T> value) : m_type(value ? &typeid(T) : nullptr), m_value(std::move(value))
    {}
    /// A value of its own from `value`.
    template <class T>
    static ObjectValue of(T value)
    {
        return std::shared_ptr<const T>(std::make_shared<T>(std::move(value)));
    }

    explicit operator bool() const { return m_value != nullptr; }

    /// Null when it holds nothing, or something else.
    template <class T>
    std::shared_ptr<const T> as() const
    {
        return m_type && *m_type == typeid(T) ? std::static_pointer_cast<const T>(m_value) : nullptr;
    }

    /// Whether both are one value, not merely equal ones.
    friend bool operator==(const ObjectValue& a, const ObjectValue& b) { return a.m_value == b.m_value; }

private:
    friend class KeptValue;
    const std::type_info* m_type = nullptr;
    std::shared_ptr<const void> m_value;
};

/// A value that is kept, or of which it is known only as long as somebody else keeps it.
class KeptValue
{
public:
    KeptValue() = default;
    KeptValue(ObjectValue value, bool isWeak) : m_kept(std::move(value)), m_known(m_kept.m_value)
    {
        if (isWeak)
            m_kept.m_value.reset();
    }

    /// Nothing once it has gone.
    ObjectValue get() const
    {
        ObjectValue value = m_kept;
        value.m_value = m_known.lock();
        return value;
    }

private:
    ObjectValue m_kept; // of a weak one only its type
    std::weak_ptr<const void> m_known;
};

} // namespace hv
