#include "documents/pdf_stream_limits.h"

#include "documents/pdf_stream_meter.h"

#include <qpdf/QPDF.hh>

#include <algorithm>
#include <map>
#include <set>
#include <span>
#include <string>

namespace fennick {

namespace {

// Once PDFium has parsed drawing instructions, they take seventeen times as much memory.
constexpr size_t largestInstructions = 12 * 1024 * 1024;
// A single font for Chinese has 20 MB.
constexpr size_t largestFonts = 64 * 1024 * 1024;
// A picture that is packed by two filters, as some scanners pack their JPEGs, is no instruction, but it may
// unpack to anything. Those of five pages at 600 dpi have 40 MB.
constexpr size_t largestPackedPictures = 128 * 1024 * 1024;
constexpr size_t pagesTogether = 5;

using PageRun = std::span<const QPDFPageObjectHelper>;

// The unpacked sizes of streams, each of which is unpacked once, however many pages share it.
class StreamSizes {
public:
    // At most a byte more than `limit`.
    size_t sizeOf(QPDFObjectHandle stream, size_t limit) {
        const auto [known, isNew] = sizes_.try_emplace(stream.getObjGen(), 0);
        if (isNew) {
            PdfStreamMeter meter(limit);
            stream.pipeStreamData(&meter, 0, qpdf_dl_generalized, true);
            known->second = std::min(meter.size(), limit + 1);
        }
        return known->second;
    }

private:
    std::map<QPDFObjGen, size_t> sizes_;
};

// Walks through everything that pages refer to, other pages aside.
class StreamWalk {
public:
    StreamWalk(PageRun pages, StreamSizes &sizes)
        : sizes_(sizes) {
        for (QPDFPageObjectHelper page : pages) {
            QPDFObjectHandle dictionary = page.getObjectHandle();
            seen_.insert(dictionary.getObjGen());
            addMembers(dictionary);
            add(page.getAttribute("/Resources", false));
        }
    }

    bool isBounded() {
        while (!waiting_.empty() && areBoundedSoFar()) {
            QPDFObjectHandle object = waiting_.back();
            waiting_.pop_back();
            if (object.isStream()) {
                addInstructions(object);
                addMembers(object.getDict());
            } else if (object.isArray()) {
                for (const QPDFObjectHandle &item : object.aitems()) {
                    add(item);
                }
            } else if (object.isDictionary() && !object.isDictionaryOfType("/Page")) {
                addMembers(object);
            }
        }
        return areBoundedSoFar();
    }

private:
    bool areBoundedSoFar() const {
        return instructions_ <= largestInstructions && fonts_ <= largestFonts &&
               pictures_ <= largestPackedPictures;
    }

    void add(QPDFObjectHandle object) {
        if (object.isIndirect() && !seen_.insert(object.getObjGen()).second) {
            return;
        }
        if (object.isStream() || object.isArray() || object.isDictionary()) {
            waiting_.push_back(object);
        }
    }

    void addMembers(QPDFObjectHandle dictionary) {
        for (const std::string &key : dictionary.getKeys()) {
            QPDFObjectHandle member = dictionary.getKey(key);
            if (key.starts_with("/FontFile") && member.isStream()) {
                fonts_ += sizes_.sizeOf(member, largestFonts);
            } else if (key != "/Parent") {
                add(member);
            }
        }
    }

    void addInstructions(QPDFObjectHandle stream) {
        QPDFObjectHandle dictionary = stream.getDict();
        QPDFObjectHandle filter = dictionary.getKey("/Filter");
        const bool isPackedAgain = filter.isArray() && filter.getArrayNItems() > 1;
        if (!dictionary.isDictionaryOfType("", "/Image")) {
            instructions_ += sizes_.sizeOf(stream, largestInstructions);
        } else if (isPackedAgain) {
            pictures_ += sizes_.sizeOf(stream, largestPackedPictures);
        }
    }

    StreamSizes &sizes_;
    std::vector<QPDFObjectHandle> waiting_;
    std::set<QPDFObjGen> seen_;
    size_t instructions_ = 0;
    size_t fonts_ = 0;
    size_t pictures_ = 0;
};

} // namespace

bool haveBoundedStreams(const std::vector<QPDFPageObjectHelper> &pages) {
    StreamSizes sizes;
    for (size_t first = 0; first < pages.size(); first += pagesTogether) {
        const PageRun together = PageRun(pages).subspan(first, std::min(pagesTogether, pages.size() - first));
        if (!StreamWalk(together, sizes).isBounded()) {
            return false;
        }
    }
    return true;
}

} // namespace fennick
