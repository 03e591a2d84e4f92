#pragma once

#include <QCommandLineParser>

#include <optional>

namespace headless {

/// What commands that only touch data do with their words.
class Words
{
public:
    /// `usage` is the first lines of the help, up to the options.
    Words(int argc, char** argv, const char* usage, const QList<QCommandLineOption>& options, int positional);

    /// Said and done: the exit status when the words ask for help or cannot be understood.
    std::optional<int> status() const { return m_status; }

    QString at(int position) const { return m_parser.positionalArguments().at(position); }
    bool has(const QString& option) const { return m_parser.isSet(option); }
    QString value(const QString& option) const { return m_parser.value(option); }

private:
    QCommandLineParser m_parser;
    std::optional<int> m_status;
};

} // namespace headless
