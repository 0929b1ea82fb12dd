#pragma once

#include "model/receipt.h"

#include <QString>

#include <optional>

// Gives a scanned receipt's file a name that a person can read: date, category, place and amount, as in
// "2024-05-01 Lunch - Mario's Cafe $23.50.pdf". Keeps no state; callable from any thread.
namespace fennick::FileRenamer {

struct RenamedFile {
    QString fileName; // last path component
    QString filePath; // absolute
};

// Renames the receipt's file in its folder and never replaces another. Nothing when the file has its name
// already or cannot be moved; it is then where it was. If the file lies below `folder`, no link between the
// two is followed.
[[nodiscard]] std::optional<RenamedFile> rename(const Receipt &receipt, const QString &folder = {});

// The wanted name with the file's extension in lower case.
QString buildNewFileName(const Receipt &receipt);

// The wanted name without extension; "Receipt" when nothing is left of it.
QString baseName(const Receipt &receipt);

// `desired`, or the first of "name (2)", "name (3)" ... that no file in `folder` has.
QString pickAvailableName(const QString &folder, const QString &desired);

// Upper-cases the first character of each piece between blanks (U+0020); runs of blanks collapse.
QString titleCase(const QString &text);

// Without the characters that some system refuses in names; white space collapsed and trimmed. No length
// limit.
QString sanitize(const QString &text);

// What is written before the amount: a symbol, or the code and a blank; empty without a code.
QString currencySymbol(const std::optional<QString> &code);

} // namespace fennick::FileRenamer
