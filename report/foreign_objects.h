#pragma once

#include <QByteArray>
#include <qpdf/QPDFObjectHandle.hh>

#include <map>
#include <string>
#include <vector>

namespace fennick {

class PdfOutput;

// Copies objects of one document into a report: what pages draw with, streams byte for byte. Pages,
// annotations, actions, embedded files and whatever else a document does beside being seen stay behind. Call
// finish() before the document goes.
class ForeignObjects {
public:
    explicit ForeignObjects(PdfOutput *output)
        : output_(output) {}

    // The object as it stands in the report. Throws for one that is nested too deep to be real.
    [[nodiscard]] QByteArray copied(QPDFObjectHandle object) { return copied(object, 0); }

    // The entries of a dictionary, of a page's resources or one of their kinds, by key as it is written.
    [[nodiscard]] std::map<std::string, QByteArray> copiedEntries(QPDFObjectHandle dictionary);

    // Writes all that was referred to.
    void finish();

private:
    QByteArray copied(QPDFObjectHandle object, int depth);
    QByteArray copiedDictionary(QPDFObjectHandle dictionary, int depth, bool hasFreeKeys);
    int numberOf(QPDFObjectHandle object);
    void write(QPDFObjectHandle object, int number);

    PdfOutput *output_;
    std::map<QPDFObjGen, int> numbers_;
    std::vector<QPDFObjectHandle> waiting_;
};

} // namespace fennick
