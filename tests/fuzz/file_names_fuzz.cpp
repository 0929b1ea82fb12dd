// Any receipt, through the renamer: names that are built, and a file that gets one.
#include "files/file_renamer.h"
#include "fuzz/invariant.h"
#include "fuzz/made_up_receipt.h"
#include "text/unsafe_characters.h"
#include "text/white_space.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace fennick;
using namespace Qt::StringLiterals;
using fuzz::require;

namespace {

const QByteArray content = "the receipt";
constexpr qsizetype longestName = 255; // bytes, as most file systems have it

void checkName(const QString &name, const char *what) {
    require(!name.isEmpty(), what);
    require(withoutUnsafeCharacters(name) == name, what);
    require(trimmedOfWhiteSpace(name) == name, what);
}

// Extensions come from the path and may be anything that a file's name may be.
void checkNames(const Receipt &receipt) {
    const QString base = FileRenamer::baseName(receipt);
    checkName(base, "the base name can be a file's name");
    const QString name = FileRenamer::buildNewFileName(receipt);
    require(name.startsWith(base), "the name begins with the base name");
    require(!name.contains(u'/'), "the name stays in its folder");
}

QByteArray contentOf(const QString &path) {
    QFile file(path);
    require(file.open(QIODevice::ReadOnly), "the receipt's file can be read");
    return file.readAll();
}

// A folder with one file, another that has the wanted name if `isTaken`, and nothing else, is what it was
// afterwards, but for the one file's name.
void checkRenaming(Receipt receipt, bool isTaken) {
    const QTemporaryDir folder;
    receipt.filePath = folder.filePath(u"scan.PDF"_s);
    const auto write = [](const QString &path, const QByteArray &bytes) {
        QFile file(path);
        return file.open(QIODevice::WriteOnly | QIODevice::NewOnly) && file.write(bytes) == bytes.size();
    };
    require(write(receipt.filePath, content), "the receipt's file can be written");
    const QString wanted = folder.filePath(FileRenamer::buildNewFileName(receipt));
    const bool hasOther = isTaken && write(wanted, "another");

    const auto renamed = FileRenamer::rename(receipt);
    const QString path = renamed ? renamed->filePath : receipt.filePath;
    require(contentOf(path) == content, "the file is where the result says");
    require(!hasOther || contentOf(wanted) == "another", "the other file is what it was");
    require(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size() ==
                (hasOther ? 2 : 1),
            "no file is made or lost");
    if (renamed) {
        require(path == folder.path() + u'/' + renamed->fileName, "name and path agree");
        require(QFile::encodeName(renamed->fileName).size() <= longestName, "the name fits");
        require(!hasOther || renamed->fileName.endsWith(u" (2).pdf"), "the second file gets a number");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    FuzzedDataProvider input(data, size);
    const Receipt receipt = fuzz::consumeReceipt(input);
    checkNames(receipt);
    checkRenaming(receipt, input.ConsumeBool());
    return 0;
}
