// cost_probe WORK COUNT: does one piece of work on COUNT receipts once, for counting its instructions. "none"
// is what all of them have in common.

#include "export/export_service.h"
#include "made_up_receipts.h"
#include "model/receipt_json.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>
#include <functional>
#include <map>
#include <string>

namespace {

using namespace fennick;

using Receipts = QList<Receipt>;

qsizetype readByQt(const QByteArray &json) {
    qsizetype size = 0;
    const QJsonArray array = QJsonDocument::fromJson(json).array();
    for (const QJsonValue &value : array) {
        const QJsonObject object = value.toObject();
        for (const QString &key : object.keys()) {
            size += object.value(key).toString().size();
        }
    }
    return size;
}

const std::map<std::string, std::function<qsizetype(const Receipts &, const QByteArray &)>> works{
    {"none",
     [](const Receipts &, const QByteArray &) {
         return 1;
     }},
    {"encode",
     [](const Receipts &receipts, const QByteArray &) {
         return encodeReceipts(receipts).size();
     }},
    {"decode",
     [](const Receipts &, const QByteArray &json) {
         return decodeReceipts(json)->size();
     }},
    {"decode-by-qt",
     [](const Receipts &, const QByteArray &json) {
         return readByQt(json);
     }},
    {"csv",
     [](const Receipts &receipts, const QByteArray &) {
         return ExportService::buildCSV(receipts).size();
     }},
    {"print-csv",
     [](const Receipts &receipts, const QByteArray &) {
         const QByteArray ledger = ExportService::buildCSV(receipts).toUtf8();
         return static_cast<qsizetype>(
             std::fwrite(ledger.constData(), 1, static_cast<size_t>(ledger.size()), stdout));
     }},
    {"html",
     [](const Receipts &receipts, const QByteArray &) {
         return ExportService::buildHTML(receipts).size();
     }},
};

} // namespace

int main(int argc, char *argv[]) {
    const auto work = works.find(argc == 3 ? argv[1] : "");
    if (work == works.end()) {
        std::fputs("usage: cost_probe none|encode|decode|decode-by-qt|csv|print-csv|html COUNT\n", stderr);
        return 2;
    }
    const Receipts receipts = madeUpReceipts(std::stoi(argv[2]));
    return work->second(receipts, encodeReceipts(receipts)) > 0 ? 0 : 1;
}
