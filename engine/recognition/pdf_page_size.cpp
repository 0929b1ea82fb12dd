#include "engine/recognition/pdf_page_size.h"

#include "engine/recognition/pdf_stream_meter.h"

#include <qpdf/QPDF.hh>

#include <set>
#include <string>

namespace fennick::engine {

namespace {

// Drawing instructions take seventeen times as much once they are understood.
constexpr size_t largestInstructions = 12 * 1024 * 1024;
// One font for Chinese takes 20 MB.
constexpr size_t largestFonts = 64 * 1024 * 1024;

// Walks through everything that pages refer to, other pages aside.
class StreamWalk {
public:
    explicit StreamWalk(const std::vector<QPDFPageObjectHelper> &pages) {
        for (QPDFPageObjectHelper page : pages) {
            QPDFObjectHandle dictionary = page.getObjectHandle();
            seen_.insert(dictionary.getObjGen());
            addMembers(dictionary);
            add(page.getAttribute("/Resources", false));
        }
    }

    bool isBounded() {
        while (!waiting_.empty()) {
            QPDFObjectHandle object = waiting_.back();
            waiting_.pop_back();
            if (object.isStream()) {
                measure(object, instructions_);
                addMembers(object.getDict());
            } else if (object.isArray()) {
                for (const QPDFObjectHandle &item : object.aitems()) {
                    add(item);
                }
            } else if (object.isDictionary() && !object.isDictionaryOfType("/Page")) {
                addMembers(object);
            }
            if (instructions_.isOver() || fonts_.isOver()) {
                return false;
            }
        }
        return true;
    }

private:
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
                measure(member, fonts_);
            } else if (key != "/Parent") {
                add(member);
            }
        }
    }

    static void measure(QPDFObjectHandle &stream, PdfStreamMeter &meter) {
        QPDFObjectHandle dictionary = stream.getDict();
        QPDFObjectHandle filter = dictionary.getKey("/Filter");
        const bool isPackedAgain = filter.isArray() && filter.getArrayNItems() > 1;
        if (!dictionary.isDictionaryOfType("", "/Image") || isPackedAgain) {
            stream.pipeStreamData(&meter, 0, qpdf_dl_generalized, true);
        }
    }

    std::vector<QPDFObjectHandle> waiting_;
    std::set<QPDFObjGen> seen_;
    PdfStreamMeter instructions_{largestInstructions};
    PdfStreamMeter fonts_{largestFonts};
};

} // namespace

bool haveBoundedStreams(const std::vector<QPDFPageObjectHelper> &pages) {
    return StreamWalk(pages).isBounded();
}

} // namespace fennick::engine
