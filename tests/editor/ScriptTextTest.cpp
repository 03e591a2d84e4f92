// Bytes of a file and its text: what goes in comes out.
#include "editor/ScriptText.h"

#include <QTextDocument>

#include <gtest/gtest.h>

namespace {

using namespace editor;

QByteArray roundTrip(const QByteArray& bytes)
{
    const ScriptText script = decodeScript(bytes);
    QTextDocument document(script.text);
    return *encodeScript(documentText(document), script.form);
}

TEST(ScriptText, everyFileIsSavedAsItWas)
{
    for (const QByteArray& bytes :
         {QByteArray(""), QByteArray("x\r\ny\r\n"), QByteArray("x\ry\r"), QByteArray("\xef\xbb\xbfx = '\xc3\xa4'\n"),
          QByteArray("# coding: latin-1\nx = '\xe4'\n"),
          QByteArray("#!/bin/x\n# vim: set fileencoding=cp1252 :\n'\x80'\n"), QByteArray("x = '\xe4\xff'\n"),
          QByteArray("# coding: utf-8\nx = '\xe4'\n"), QByteArray("a\0b\f\x1c\n", 6),
          QByteArray("no-break\xc2\xa0space, line\xe2\x80\xa8separator\n"), QByteArray("# coding=nonsense\n\xe4\n"),
          QByteArray("\xef\xbb\xbf# coding: latin-1\n\xc3\xa4\n"), QByteArray("\xef\xbb\xbf\xe4\n"),
          QByteArray("# coding: utf-16\nx\n"), QByteArray("# coding: rot13\r\r# coding: latin-1\r\xe4\r")})
        EXPECT_EQ(roundTrip(bytes).toHex(' ').toStdString(), bytes.toHex(' ').toStdString());
}

TEST(ScriptText, tellsWhatIsOddAndWhatCannotBeSaved)
{
    EXPECT_TRUE(decodeScript("x\r\n").remark.isEmpty());
    EXPECT_TRUE(decodeScript("'\xe4'").remark.contains(QStringLiteral("not UTF-8")));
    EXPECT_TRUE(decodeScript("a\nb\r\nc\r\n").remark.contains(QStringLiteral("line ends")));
    EXPECT_EQ(roundTrip("a\nb\r\nc\r\n"), QByteArray("a\r\nb\r\nc\r\n")) << "as most lines have it";
    const auto refused = encodeScript(QStringLiteral("# coding: latin-1\n\u20ac"), {});
    ASSERT_FALSE(refused);
    EXPECT_TRUE(refused.failure().sentence.contains(
        QStringLiteral("Line 2 has the character \"\u20ac\", which the encoding latin-1")));
    // Latin-1 was a way to show the file, not a choice.
    TextForm shown = decodeScript("'\xe4'").form;
    EXPECT_EQ(*encodeScript(QStringLiteral("\u20ac"), shown), QByteArray("\xe2\x82\xac"));
}

} // namespace
