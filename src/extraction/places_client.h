#pragma once

#include "extraction/gemini_receipt_data.h"
#include "extraction/value_places.h"
#include "platform/regular_file.h"

#include <QByteArray>
#include <QCoroTask>
#include <QString>

#include <expected>
#include <optional>
#include <stop_token>

// Asks Fennick's own engine where values stand on a document. It keeps no state; no key and no other service
// is involved.
namespace fennick::PlacesClient {

// The body of a request for the places of `values` in this file. Values of a form that the engine would
// refuse are left out. Fails if the file cannot be read, or is larger than the engine takes. Callable from
// any thread.
[[nodiscard]] std::expected<QByteArray, FileProblem> requestBody(FileToRead wanted,
                                                                 const GeminiReceiptData &values);

// What the engine's answer says; nothing if it is not understood. Pure.
[[nodiscard]] std::optional<ValuePlaces> readAnswer(const QByteArray &body);

// Sends the request to the engine at this address and awaits the answer. Nothing if the engine cannot read
// the document, has ended (`engineEnd`) or takes longer than a minute, or once `stop` is requested. Both are
// requested on the calling thread.
[[nodiscard]] QCoro::Task<std::optional<ValuePlaces>> find(QByteArray body, QString engineAddress,
                                                           std::stop_token engineEnd, std::stop_token stop);

} // namespace fennick::PlacesClient
