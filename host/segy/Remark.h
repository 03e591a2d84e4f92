#pragma once

#include <QString>
#include <QStringList>

#include <algorithm>
#include <vector>

namespace hv::segy {

/// What there is to know about how a file was understood: the dialog, the command line and the volume's history show
/// it.
struct Remark
{
    enum class Weight
    {
        Found,    ///< stands so in the file
        Assumed,  ///< the file does not say, or says several things
        Doubtful, ///< something in the file is wrong, and was passed over
        Prevents, ///< the file cannot be imported until the user says how to read it
    };

    Weight weight;
    /// One sentence.
    QString text;
};

class Remarks
{
public:
    void found(const QString& text) { m_all.push_back({Remark::Weight::Found, text}); }
    void assumed(const QString& text) { m_all.push_back({Remark::Weight::Assumed, text}); }
    void doubtful(const QString& text) { m_all.push_back({Remark::Weight::Doubtful, text}); }
    void prevents(const QString& text) { m_all.push_back({Remark::Weight::Prevents, text}); }
    void append(const Remarks& other) { m_all.insert(m_all.end(), other.m_all.begin(), other.m_all.end()); }

    const std::vector<Remark>& all() const { return m_all; }
    /// The first sentence that prevents the import; empty when there is none.
    QString obstacle() const
    {
        const auto found = std::find_if(m_all.begin(), m_all.end(),
                                        [](const Remark& each) { return each.weight == Remark::Weight::Prevents; });
        return found == m_all.end() ? QString() : found->text;
    }

private:
    std::vector<Remark> m_all;
};

} // namespace hv::segy
