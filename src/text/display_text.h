#pragma once

#include <QString>

namespace fennick {

// `text` as a line that cannot pretend to be another one: line breaks, tabs and other control characters
// become blanks, and what reorders text in disguise (the overrides, embeddings and isolates of Unicode's
// bidirectional algorithm, by which "invoice-fdp.exe" can look like "invoice-exe.pdf") becomes the
// replacement character U+FFFD. Right-to-left scripts themselves stay as they are.
QString displayText(const QString &text);

} // namespace fennick
