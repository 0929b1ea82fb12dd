#include "report/foreign_objects.h"

#include "report/pdf_output.h"

#include <qpdf/Buffer.hh>

#include <memory>
#include <set>
#include <stdexcept>

namespace fennick {

namespace {

constexpr int mostLevels = 200;

// Dictionaries whose keys are the document's own names.
bool hasFreeKeysBelow(const std::string &key) {
    static const std::set<std::string> keys{"/Font",       "/XObject",   "/ExtGState",
                                            "/ColorSpace", "/Pattern",   "/Shading",
                                            "/Properties", "/CharProcs", "/Colorants"};
    return keys.contains(key);
}

// What does something, what leads out of the page, and what is kept for other programs.
bool staysBehind(const std::string &key) {
    static const std::set<std::string> keys{"/A",
                                            "/AA",
                                            "/AF",
                                            "/Annots",
                                            "/AcroForm",
                                            "/EF",
                                            "/EmbeddedFiles",
                                            "/JS",
                                            "/JavaScript",
                                            "/LastModified",
                                            "/Metadata",
                                            "/Names",
                                            "/OpenAction",
                                            "/OPI",
                                            "/Parent",
                                            "/PieceInfo",
                                            "/Ref",
                                            "/StructParent",
                                            "/StructParents",
                                            "/StructTreeRoot"};
    return keys.contains(key);
}

// A name with its special characters as numbers.
std::string written(const std::string &name) {
    return QPDFObjectHandle::newName(name).unparse();
}

bool isPartOfNoPicture(QPDFObjectHandle object) {
    static const std::set<std::string> types{"/Action", "/Annot",      "/Catalog",       "/EmbeddedFile",
                                             "/F",      "/Filespec",   "/Page",          "/Pages",
                                             "/Sig",    "/StructElem", "/StructTreeRoot"};
    if (!object.isDictionary() && !object.isStream()) {
        return false;
    }
    QPDFObjectHandle type = (object.isStream() ? object.getDict() : object).getKey("/Type");
    return type.isName() && types.contains(type.getName());
}

} // namespace

std::map<std::string, QByteArray> ForeignObjects::copiedEntries(QPDFObjectHandle dictionary) {
    std::map<std::string, QByteArray> entries;
    if (!dictionary.isDictionary()) {
        return entries;
    }
    for (const std::string &key : dictionary.getKeys()) {
        QPDFObjectHandle value = dictionary.getKey(key);
        const bool isKind = hasFreeKeysBelow(key) && value.isDictionary();
        entries.emplace(written(key), isKind ? copiedDictionary(value, 1, true) : copied(value, 1));
    }
    return entries;
}

void ForeignObjects::finish() {
    while (!waiting_.empty()) {
        QPDFObjectHandle object = waiting_.back();
        waiting_.pop_back();
        write(object, numbers_.at(object.getObjGen()));
    }
}

QByteArray ForeignObjects::copied(QPDFObjectHandle object, int depth) {
    if (depth > mostLevels) {
        throw std::runtime_error("objects nested too deep");
    }
    if (isPartOfNoPicture(object)) {
        return QByteArrayLiteral("null");
    }
    if (object.isIndirect()) {
        return pdfReference(numberOf(object));
    }
    if (object.isArray()) {
        QByteArray array = QByteArrayLiteral("[");
        for (int index = 0; index < object.getArrayNItems(); ++index) {
            array += ' ' + copied(object.getArrayItem(index), depth + 1);
        }
        return array + ']';
    }
    if (object.isDictionary()) {
        return copiedDictionary(object, depth, false);
    }
    return QByteArray::fromStdString(object.unparseResolved());
}

QByteArray ForeignObjects::copiedDictionary(QPDFObjectHandle dictionary, int depth, bool hasFreeKeys) {
    QByteArray text = QByteArrayLiteral("<<");
    for (const std::string &key : dictionary.getKeys()) {
        if (!hasFreeKeys && staysBehind(key)) {
            continue;
        }
        QPDFObjectHandle value = dictionary.getKey(key);
        const bool isKind = !hasFreeKeys && hasFreeKeysBelow(key) && value.isDictionary();
        const QByteArray copy = isKind ? copiedDictionary(value, depth + 1, true) : copied(value, depth + 1);
        text += QByteArray::fromStdString(written(key)) + ' ' + copy;
    }
    return text + ">>";
}

int ForeignObjects::numberOf(QPDFObjectHandle object) {
    const auto [entry, isNew] = numbers_.try_emplace(object.getObjGen(), 0);
    if (isNew) {
        entry->second = output_->reserve();
        waiting_.push_back(object);
    }
    return entry->second;
}

void ForeignObjects::write(QPDFObjectHandle object, int number) {
    if (!object.isStream()) {
        QByteArray text;
        if (object.isDictionary()) {
            text = copiedDictionary(object, 0, false);
        } else if (object.isArray()) {
            text = copied(object.shallowCopy(), 0);
        } else {
            text = QByteArray::fromStdString(object.unparseResolved());
        }
        output_->write(number, text);
        return;
    }
    QPDFObjectHandle dictionary = object.getDict().shallowCopy();
    dictionary.removeKey("/Length");
    const QByteArray entries = copiedDictionary(dictionary, 0, false);
    const std::shared_ptr<Buffer> content = object.getRawStreamData();
    output_->writeStream(number, entries.sliced(2).chopped(2),
                         QByteArrayView(content->getBuffer(), static_cast<qsizetype>(content->getSize())));
}

} // namespace fennick
