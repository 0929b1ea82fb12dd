#pragma once

#include <QString>

namespace fennick {

// `text` as one line that cannot be mistaken for another: line breaks, tabs and other control characters
// become blanks. The overrides, embeddings and isolates of Unicode's bidirectional algorithm, with which
// "invoice-fdp.exe" can look like "invoice-exe.pdf", become the replacement character U+FFFD. Right-to-left
// scripts are unaffected.
QString displayText(const QString &text);

} // namespace fennick
