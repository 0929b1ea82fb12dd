#include "settings/report_memory.h"

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

const QString nameKey = u"name"_s;

} // namespace

ReportMemory::ReportMemory()
    : defaults_(u"Report"_s) {}

std::optional<QString> ReportMemory::name() const {
    return defaults_.string(nameKey);
}

void ReportMemory::setName(const QString &name) {
    defaults_.set(nameKey, name);
}

} // namespace fennick
