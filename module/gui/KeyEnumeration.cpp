#include "module/Bindings.h"
#include "module/EnumerationTable.h"

namespace python {

namespace {

constexpr NamedValue<Qt::Key> g_keys[] = {
    {"Escape", Qt::Key_Escape},
    {"Tab", Qt::Key_Tab},
    {"Backtab", Qt::Key_Backtab},
    {"Backspace", Qt::Key_Backspace},
    {"Return", Qt::Key_Return},
    {"Enter", Qt::Key_Enter},
    {"Insert", Qt::Key_Insert},
    {"Delete", Qt::Key_Delete},
    {"Pause", Qt::Key_Pause},
    {"Print", Qt::Key_Print},
    {"Clear", Qt::Key_Clear},
    {"Home", Qt::Key_Home},
    {"End", Qt::Key_End},
    {"Up", Qt::Key_Up},
    {"Down", Qt::Key_Down},
    {"PageUp", Qt::Key_PageUp},
    {"PageDown", Qt::Key_PageDown},
    {"Shift", Qt::Key_Shift},
    {"Control", Qt::Key_Control},
    {"Meta", Qt::Key_Meta},
    {"Alt", Qt::Key_Alt},
    {"CapsLock", Qt::Key_CapsLock},
    {"NumLock", Qt::Key_NumLock},
    {"ScrollLock", Qt::Key_ScrollLock},
    {"F1", Qt::Key_F1},
    {"F2", Qt::Key_F2},
    {"F3", Qt::Key_F3},
    {"F4", Qt::Key_F4},
    {"F5", Qt::Key_F5},
    {"F6", Qt::Key_F6},
    {"F7", Qt::Key_F7},
    {"F8", Qt::Key_F8},
    {"F9", Qt::Key_F9},
    {"F10", Qt::Key_F10},
    {"F11", Qt::Key_F11},
    {"F12", Qt::Key_F12},
    {"Space", Qt::Key_Space},
    {"ExclamationPoint", Qt::Key_Exclam},
    {"DoubleQuote", Qt::Key_QuoteDbl},
    {"NumberSign", Qt::Key_NumberSign},
    {"Dollar", Qt::Key_Dollar},
    {"Percent", Qt::Key_Percent},
    {"Ampersand", Qt::Key_Ampersand},
    {"Apostrophe", Qt::Key_Apostrophe},
    {"LeftParen", Qt::Key_ParenLeft},
    {"RightParen", Qt::Key_ParenRight},
    {"Plus", Qt::Key_Plus},
    {"Comma", Qt::Key_Comma},
    {"Minus", Qt::Key_Minus},
    {"Period", Qt::Key_Period},
    {"Slash", Qt::Key_Slash},
    {"Number_0", Qt::Key_0},
    {"Number_1", Qt::Key_1},
    {"Number_2", Qt::Key_2},
    {"Number_3", Qt::Key_3},
    {"Number_4", Qt::Key_4},
    {"Number_5", Qt::Key_5},
    {"Number_6", Qt::Key_6},
    {"Number_7", Qt::Key_7},
    {"Number_8", Qt::Key_8},
    {"Number_9", Qt::Key_9},
    {"Colon", Qt::Key_Colon},
    {"SemiColon", Qt::Key_Semicolon},
    {"Less", Qt::Key_Less},
    {"Equal", Qt::Key_Equal},
    {"Greater", Qt::Key_Greater},
    {"QuestionMark", Qt::Key_Question},
    {"at", Qt::Key_At},
    {"LeftBracket", Qt::Key_BracketLeft},
    {"Backslash", Qt::Key_Backslash},
    {"RightBracket", Qt::Key_BracketRight},
    {"Underscore", Qt::Key_Underscore},
    {"QuoteLeft", Qt::Key_QuoteLeft},
    {"BraceLeft", Qt::Key_BraceLeft},
    {"BraceRight", Qt::Key_BraceRight},
    {"Tilde", Qt::Key_AsciiTilde},
};

} // namespace

void bindKey()
{
    registerEnumeration("Key",
                        "A key of the keyboard. Letter keys have no name; they are the number of the capital letter: "
                        "event.key == ord('A').",
                        g_keys);
}

} // namespace python
