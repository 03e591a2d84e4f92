#pragma once

#include "editor/HVPythonTextEdit.h"
#include "host/services/HVEventBus.h"
#include "runtime/HVPythonExecutionContext.h"

#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>

#include <gtest/gtest.h>

/// The whole program shares one interpreter; main() is in EditorFixture.cpp. Editors are real windows, offscreen.
namespace fixture {

const HVPythonExecutionContext& context();

/// Answers the message boxes that come up, in order, and keeps their texts.
class BoxAnswers : public QObject
{
public:
    explicit BoxAnswers(std::vector<QMessageBox::StandardButton> answers);
    ~BoxAnswers() override;
    QStringList asked;

private:
    std::vector<QMessageBox::StandardButton> m_answers;
    int m_timer;
    void timerEvent(QTimerEvent* event) override;
};

/// The messages to the user while it lives, one a line.
class Messages final : private HVEventBus::Sink
{
public:
    Messages() { HVEventBus::instance().addSink(this); }
    ~Messages() { HVEventBus::instance().removeSink(this); }
    std::string text;

private:
    void receive(const HVEventBus::Message& message) override { text += std::string(message.text) + "\n"; }
};

QByteArray contents(const QString& path);
void write(const QString& path, const QByteArray& bytes);

class EditorTest : public testing::Test
{
protected:
    EditorTest();

    void setText(const char* text);
    std::string text() const { return view.plainText().toStdString(); }
    /// "line:column", from 1 and 0.
    std::string cursor() const;
    void select(int fromLine, int toLine); ///< whole lines, without the last line's end
    void key(int code, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&view, Qt::Key(code), modifiers); }
    void type(const char* typed) { QTest::keyClicks(&view, QString::fromUtf8(typed)); }
    /// Backgrounds of the marks, by name, in their order.
    std::string marks() const;
    bool run();
    std::string notice() const;

    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a script.py"));
    HVPythonTextEdit view;
};

} // namespace fixture
