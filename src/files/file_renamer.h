#pragma once

#include "model/receipt.h"

#include <QString>

#include <optional>

// Gives a scanned receipt's file a readable name of date, category, place and amount, as in
// "2024-05-01 Lunch - Mario's Cafe $23.50.pdf". Stateless; callable from any thread.
namespace fennick::FileRenamer {

struct RenamedFile {
    QString fileName; // last path component
    QString filePath; // absolute
};

// Renames the receipt's file in its folder and never replaces another. Returns nothing if the file already
// has the name or cannot be moved; it is unchanged then. If the file lies below `folder`, no link
// between the two is followed.
[[nodiscard]] std::optional<RenamedFile> rename(const Receipt &receipt, const QString &folder = {});

// The name that `rename` would give the file now: the intended one, numbered if another file has it.
QString nameAfterRenaming(const Receipt &receipt);

// The intended name, with the file's extension in lower case.
QString buildNewFileName(const Receipt &receipt);

// The intended name without extension; "Receipt" if it would be empty.
QString baseName(const Receipt &receipt);

// `desired`, or the first of "name (2)", "name (3)" ... that is free in `folder`.
QString pickAvailableName(const QString &folder, const QString &desired);

// Capitalises each word between blanks (U+0020) and collapses runs of blanks.
QString titleCase(const QString &text);

// Removes the characters that some file system does not allow in names, collapses white space and trims.
// Does not limit the length.
QString sanitize(const QString &text);

// The text before the amount: a symbol, or the code and a blank; empty without a code.
QString currencySymbol(const std::optional<QString> &code);

} // namespace fennick::FileRenamer
