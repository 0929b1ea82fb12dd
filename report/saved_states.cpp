#include "report/saved_states.h"

#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFPageObjectHelper.hh>

#include <algorithm>
#include <exception>

namespace fennick {

namespace {

class StateCounter : public QPDFObjectHandle::ParserCallbacks {
public:
    using ParserCallbacks::handleObject;

    void handleObject(QPDFObjectHandle object) override {
        if (!object.isOperator()) {
            return;
        }
        const std::string name = object.getOperatorValue();
        if (name == "q") {
            ++depth_;
        } else if (name == "Q") {
            --depth_;
            lowest_ = std::min(lowest_, depth_);
        }
    }

    void handleEOF() override {}

    SavedStates states() const { return {.missing = -lowest_, .left = depth_ - lowest_}; }

private:
    int depth_ = 0;
    int lowest_ = 0;
};

} // namespace

SavedStates savedStates(QPDFPageObjectHelper &page) {
    StateCounter counter;
    try {
        page.parseContents(&counter);
    } catch (const std::exception &) {
        return counter.states(); // viewers stop there as well
    }
    return counter.states();
}

} // namespace fennick
