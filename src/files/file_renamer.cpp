#include "files/file_renamer.h"

#include "platform/file_operations.h"
#include "platform/free_path.h"
#include "text/characters.h"
#include "text/number_text.h"
#include "text/path_text.h"
#include "text/unsafe_characters.h"
#include "text/white_space.h"

#include <QHash>
#include <QStringList>

#include <cmath>

namespace fennick::FileRenamer {

using namespace Qt::StringLiterals;

namespace {

// The system takes a null character for a name's end, and would give the file another name than the wanted
// one.
bool isPossible(const QString &name) {
    return !name.contains(QChar(QChar::Null));
}

} // namespace

std::optional<RenamedFile> rename(const Receipt &receipt, const QString &watched) {
    const QString name = nameAfterRenaming(receipt);
    const QString newPath = joinedPath(parentFolder(receipt.filePath), name);
    if (newPath == receipt.filePath || !isPossible(name)) {
        return std::nullopt;
    }
    // Not QFile::rename(), which copies over a file that has come to have the name in the meantime.
    if (!FileOperations::moveWithoutReplacing(receipt.filePath, newPath, watched)) {
        return std::nullopt;
    }
    return RenamedFile{name, newPath};
}

QString nameAfterRenaming(const Receipt &receipt) {
    QString desired = buildNewFileName(receipt);
    if (desired == lastPathComponent(receipt.filePath)) {
        return desired; // also keeps a second scan from giving the file a number
    }
    return pickAvailableName(parentFolder(receipt.filePath), desired);
}

QString buildNewFileName(const Receipt &receipt) {
    const QString extension = lowerCased(pathExtension(receipt.filePath));
    const QString base = baseName(receipt);
    return extension.isEmpty() ? base : base + u'.' + extension;
}

QString baseName(const Receipt &receipt) {
    QStringList pieces;
    pieces.append(receipt.date.value_or(u"Undated"_s));
    pieces.append(receipt.category.isEmpty() ? u"Receipt"_s : titleCase(receipt.category));
    const QString location = sanitize(receipt.location.value_or(QString()));
    if (!location.isEmpty()) {
        pieces.append(u"- "_s + location);
    }
    if (receipt.amount && std::isfinite(*receipt.amount)) {
        pieces.append(currencySymbol(receipt.currency) + twoDecimals(*receipt.amount));
    }
    const QString base = sanitize(pieces.join(u' '));
    return base.isEmpty() ? u"Receipt"_s : base;
}

QString pickAvailableName(const QString &folder, const QString &desired) {
    return lastPathComponent(freePath(folder, desired));
}

QString titleCase(const QString &text) {
    QStringList pieces = text.split(u' ', Qt::SkipEmptyParts);
    for (QString &piece : pieces) {
        piece = firstCharacterUpperCased(piece);
    }
    return pieces.join(u' ');
}

QString sanitize(const QString &text) {
    return splitOnWhiteSpace(withoutUnsafeCharacters(text)).join(u' ');
}

QString currencySymbol(const std::optional<QString> &code) {
    static const QHash<QString, QString> symbols = {
        {u"USD"_s, u"$"_s},  {u"EUR"_s, u"€"_s},  {u"GBP"_s, u"£"_s},   {u"JPY"_s, u"¥"_s},
        {u"CAD"_s, u"C$"_s}, {u"AUD"_s, u"A$"_s}, {u"CHF"_s, u"CHF "_s}};
    if (!code) {
        return {};
    }
    const QString upperCode = upperCased(*code);
    return symbols.value(upperCode, upperCode + u' ');
}

} // namespace fennick::FileRenamer
