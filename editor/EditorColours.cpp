#include "editor/EditorColours.h"

#include <QPalette>

namespace editor {

EditorColours EditorColours::of(const QPalette& application)
{
    if (application.color(QPalette::Base).lightness() >= 128)
        return {.dark = false,
                .base = Qt::white,
                .text = Qt::black,
                .gutter = Qt::lightGray,
                .lineNumber = Qt::black,
                .breakpoint = Qt::red,
                .paused = Qt::green,
                .currentLine = QColor(Qt::yellow).lighter(180),
                .pausedLine = QColor(Qt::green).lighter(160),
                .errorLine = QColor(Qt::red).lighter(150),
                .match = Qt::gray,
                .currentMatch = Qt::blue,
                .bracket = QColor(0xb4d8f7),
                .wrongBracket = QColor(0xff9d9d)};
    return {.dark = true,
            .base = application.color(QPalette::Base),
            .text = application.color(QPalette::Text),
            .gutter = application.color(QPalette::Window),
            .lineNumber = application.color(QPalette::WindowText),
            .breakpoint = QColor(0xa83232),
            .paused = QColor(0x2e7d32),
            .currentLine = QColor(0x2d333b),
            .pausedLine = QColor(0x1f4a2a),
            .errorLine = QColor(0x5c2b2e),
            .match = QColor(0x4d5560),
            .currentMatch = QColor(0x1f5fa8),
            .bracket = QColor(0x2f5d80),
            .wrongBracket = QColor(0x8a3636)};
}

} // namespace editor
