#include "runtime/Errors.h"
#include "runtime/GilLock.h"
#include "runtime/TextSetting.h"
#include "tests/runtime/RuntimeFixture.h"

#include <boost/python.hpp>

#include <QSettings>
#include <QVariant>

namespace bp = boost::python;

namespace {

QVariant g_variant;
QString g_text;

/// Functions of a host as a binding would register them.
void exposeFunctions()
{
    const python::GilLock lock;
    bp::import("strativo_python");
    bp::object main = bp::import("__main__");
    const bp::scope inMain(main);
    bp::def(
        "setVariant", +[](const QVariant& variant) { g_variant = variant; });
    bp::def(
        "getVariant", +[] { return g_variant; });
    bp::def(
        "setText", +[](const QString& text) { g_text = text; });
    bp::def(
        "getText", +[] { return g_text; });
    bp::def(
        "failing", +[](const bp::object& index) -> int {
            const long long i = python::requireInt(index, "Thing, expected 'int' but got '%s'");
            if (!python::isValidIndex(i, 3))
                python::raise(PyExc_IndexError, "Thing, index %lld out of range (0 -> %d)", i, 2);
            return static_cast<int>(i);
        });
}

class ConversionTest : public fixture::RuntimeTest
{
protected:
    static void SetUpTestSuite() { exposeFunctions(); }

    /// The last line of the error report, without its end.
    std::string errorOf(const char* code)
    {
        recorder.posts.clear();
        EXPECT_FALSE(run(code));
        std::string report = recorder.textOf(6);
        report.pop_back();
        return report.substr(report.rfind('\n') + 1);
    }
};

TEST_F(ConversionTest, TextGoesInWholeAndComesOutThroughLatin1)
{
    EXPECT_TRUE(run("class S(str): pass\nsetText(S('gr\\u00fc\\u00df \\u6c34 \\U0001f30b'))"));
    EXPECT_EQ(g_text, QString::fromUtf8("gr\xC3\xBC\xC3\x9F \xE6\xB0\xB4 \xF0\x9F\x8C\x8B"));
    EXPECT_FALSE(run("g = getText()"));
    EXPECT_NE(recorder.textOf(6).find("UnicodeDecodeError: 'utf-8' codec can't decode byte 0xfc"), std::string::npos);
    g_text = QString::fromUtf8("plain \xE6\xB0\xB4");
    EXPECT_TRUE(run("print(getText())"));
    EXPECT_EQ(recorder.textOf(5), "plain ?\n");

    recorder.posts.clear();
    EXPECT_FALSE(run("setText('\\udcff')"));
    EXPECT_NE(recorder.textOf(6).find("UnicodeEncodeError"), std::string::npos);
    EXPECT_NE(recorder.textOf(6).find("ArgumentError"), std::string::npos);
    EXPECT_FALSE(run("setText(b'bytes')"));
}

TEST_F(ConversionTest, TheSwitchForWholeTextsIsKeptAndNamedByTheError)
{
    g_text = QString::fromUtf8("gr\xC3\xBC\xC3\x9F \xE6\xB0\xB4");
    g_variant = g_text;
    EXPECT_FALSE(run("getText()"));
    EXPECT_NE(recorder.textOf(6).find("Settings > Python > Whole Unicode texts"), std::string::npos);
    EXPECT_NE(recorder.textOf(6).find("strativo run --unicode-text"), std::string::npos);

    python::storeTextSetting(true);
    EXPECT_TRUE(QSettings().value("Python/unicode-text").toBool());
    recorder.posts.clear();
    EXPECT_TRUE(run("print(getText() == getVariant() == 'gr\u00fc\u00df \u6c34')"));
    EXPECT_EQ(recorder.textOf(5), "True\n");

    python::setTextsWhole(false);
    python::readTextSetting();
    EXPECT_TRUE(python::areTextsWhole());
    python::storeTextSetting(false);
    EXPECT_FALSE(run("getVariant()"));
}

TEST_F(ConversionTest, VariantsTakeFourTypesAndBoolArrivesAsInt)
{
    const auto store = [this](const char* expression) {
        EXPECT_TRUE(run((std::string("setVariant(") + expression + ")").c_str())) << expression;
        return g_variant;
    };
    EXPECT_EQ(store("True"), QVariant(1));
    EXPECT_EQ(store("True").type(), QVariant::Int);
    EXPECT_EQ(store("-7").type(), QVariant::Int);
    EXPECT_EQ(store("2**40"), QVariant(1LL << 40));
    EXPECT_EQ(store("1.5"), QVariant(1.5));
    EXPECT_EQ(store("'\\u00e9'"), QVariant(QString(QChar(0xe9))));

    g_variant = true;
    EXPECT_TRUE(run("print(getVariant(), type(getVariant()).__name__)"));
    EXPECT_EQ(recorder.textOf(5), "True bool\n");
    g_variant = QVariant::fromValue(QStringList("a"));
    EXPECT_EQ(errorOf("getVariant()"),
              "TypeError: conversion to variant only supported for types 'int', 'bool', 'float', and 'str'");
    EXPECT_EQ(
        errorOf("setVariant([1])"),
        "TypeError: conversion to variant only supported for types 'int', 'bool', 'float', and 'str' but got 'list'");
    EXPECT_EQ(errorOf("setVariant(2**70)").rfind("OverflowError", 0), 0U);
}

TEST_F(ConversionTest, ChecksRaiseWithTheirOwnTexts)
{
    EXPECT_TRUE(run("print(failing(True))"));
    EXPECT_EQ(recorder.textOf(5), "1\n");
    EXPECT_EQ(errorOf("failing('x')"), "TypeError: Thing, expected 'int' but got 'str'");
    EXPECT_EQ(errorOf("failing(-1)"), "IndexError: Thing, index -1 out of range (0 -> 2)");
    EXPECT_EQ(errorOf("failing(3)"), "IndexError: Thing, index 3 out of range (0 -> 2)");
}

} // namespace
