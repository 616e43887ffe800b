// Text of a serial line in a document, given back exactly as it came.
//
// A document lays out a whole block for each character added to it. So a line that is too long goes
// on in a block of its own, and each block separator says what it stands for: the characters of the
// line break that came, or none at all.
#pragma once

#include <QString>
#include <QTextCursor>
#include <QTextDocument>

namespace varno {

// Puts `text` in the place of the cursor's selection, the cursor behind it.
void InsertLineText(QTextCursor& cursor, const QString& text);

// A line feed whose carriage return ends the document completes that line break; false if none
// does.
bool CompleteLineBreak(QTextDocument& document);

// The text from one position of the document to another.
QString LineText(const QTextDocument& document, int from, int to);

// Whether a separator that stands for nothing, a joint, is behind this position.
bool IsJoint(const QTextDocument& document, int position);

// How many characters of the text are in front of a position; and back: the position behind a joint
// rather than in front, and the one in front of a line break whose middle is meant.
int OffsetAt(const QTextDocument& document, int position);
int PositionAt(const QTextDocument& document, int offset);

}  // namespace varno
