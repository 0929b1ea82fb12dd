#pragma once

#include "extraction/value_places.h"
#include "model/receipt.h"
#include "pipeline/typed_fields.h"

#include <QCoroTask>
#include <QObject>

#include <map>
#include <optional>
#include <set>
#include <stop_token>

namespace fennick {

class FolderThreads;
class OnDeviceEngine;
class Tasks;
struct WatchedFolder;

// Finds where the values of the displayed receipt stand on its pages. Always asks Fennick's own engine,
// whatever the source of the values; one receipt at a time, and nothing is stored. Until there is an answer,
// and if there is none, there are no places and nothing counts as missing. Owned by AppState; main thread.
class EvidenceSearch : public QObject {
    Q_OBJECT

public:
    EvidenceSearch(const WatchedFolder *watchedFolder, const FolderThreads *folderThreads,
                   OnDeviceEngine *engine, Tasks *tasks);
    ~EvidenceSearch() override;

    // Looks for the receipt's values on its `pageCount` pages, in place of what was looked for before. Does
    // nothing if the same values were looked for in the same file last, even without success.
    void searchFor(const Receipt &receipt, qsizetype pageCount);

    // Ends what is under way and forgets what was found.
    void clear();

    // The places that were found.
    const std::map<ReceiptField, PlaceOnPage> &places() const { return places_; }

    // Whether the field's value was looked for on all pages and is not there. Never for category and summary.
    bool isMissing(ReceiptField field) const { return missing_.contains(field); }

Q_SIGNALS:
    // places() or isMissing() may have changed.
    void changed();

private:
    struct Wanted {
        Receipt receipt;
        qsizetype pageCount = 0;
    };

    bool isWanted(const Receipt &receipt, qsizetype pageCount) const;
    void forget();
    [[nodiscard]] QCoro::Task<> run();
    [[nodiscard]] QCoro::Task<std::optional<ValuePlaces>> search(Receipt receipt, std::stop_token stop);
    [[nodiscard]] QCoro::Task<std::optional<ValuePlaces>> ask(Receipt receipt, std::stop_token stop);
    void take(const ValuePlaces &found);

    const WatchedFolder *watchedFolder_;
    const FolderThreads *folderThreads_;
    OnDeviceEngine *engine_;
    Tasks *tasks_;
    std::optional<Wanted> wanted_;
    std::stop_source stop_;
    bool isRunning_ = false;
    bool isAnswered_ = false; // for what is wanted
    std::map<ReceiptField, PlaceOnPage> places_;
    std::set<ReceiptField> missing_;
};

} // namespace fennick
