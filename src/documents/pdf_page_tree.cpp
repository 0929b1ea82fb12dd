#include "documents/pdf_page_tree.h"

#include <qpdf/QPDF.hh>

#include <set>
#include <vector>

namespace fennick {

namespace {

// A balanced tree has three levels for thousands of pages.
constexpr int mostLevels = 500;
// Nodes may share their lists of children, and a small file thus have any number of them.
constexpr int mostChildren = 1'000'000;

} // namespace

bool hasReasonablePageTree(QPDF &document) {
    struct Node {
        QPDFObjectHandle object;
        int level;
    };
    std::set<QPDFObjGen> visited;
    int children = 0;
    std::vector<Node> waiting{{document.getRoot().getKey("/Pages"), 1}};
    while (!waiting.empty()) {
        Node node = waiting.back();
        waiting.pop_back();
        if (node.level > mostLevels) {
            return false;
        }
        if (!node.object.isDictionary()) {
            continue;
        }
        if (node.object.isIndirect() && !visited.insert(node.object.getObjGen()).second) {
            continue;
        }
        QPDFObjectHandle kids = node.object.getKey("/Kids");
        const int kidCount = kids.isArray() ? kids.getArrayNItems() : 0;
        children += kidCount;
        if (children > mostChildren) {
            return false;
        }
        for (int index = 0; index < kidCount; ++index) {
            waiting.push_back({kids.getArrayItem(index), node.level + 1});
        }
    }
    return true;
}

} // namespace fennick
