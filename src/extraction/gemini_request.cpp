#include "extraction/gemini_request.h"

#include "extraction/valid_categories.h"
#include "text/characters.h"
#include "text/path_text.h"

#include <QFile>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace fennick::GeminiClient {

namespace {

const QString instruction = QStringLiteral(
    "You are a receipt data extraction assistant. Analyze the provided receipt image or document and extract "
    "the following information.\n"
    "\n"
    "Return ONLY a valid JSON object with these exact fields:\n"
    "- date: string in YYYY-MM-DD format, or null if not visible\n"
    "- time: string in HH:MM 24-hour format, or null if not visible\n"
    "- amount: number (the total amount paid, no currency symbol), or null if not visible\n"
    "- currency: ISO 4217 currency code (USD, EUR, GBP, etc.), or null if unknown\n"
    "- location: merchant name and/or address as a short string, or null if not visible\n"
    "- category: one of exactly these values: lunch, dinner, breakfast, coffee, hotel, transport, fuel, "
    "groceries, shopping, entertainment, misc\n"
    "- summary: one concise sentence describing this receipt (e.g. \"Lunch at Mario's Cafe for $23.50\")\n"
    "\n"
    "Do not include any text outside the JSON object.");

QJsonObject nullable(const QString &type, const QString &description) {
    return {{QStringLiteral("type"), type},
            {QStringLiteral("nullable"), true},
            {QStringLiteral("description"), description}};
}

QJsonArray categories() {
    QJsonArray array;
    for (const QStringView category : validCategories) {
        array.append(category.toString());
    }
    return array;
}

// "category" and "summary" carry no "nullable", unlike the other five. That is intended.
QJsonObject properties() {
    const QString string = QStringLiteral("string");
    return {
        {QStringLiteral("date"),
         nullable(string, QStringLiteral("Date in YYYY-MM-DD format, or null if not found"))},
        {QStringLiteral("time"),
         nullable(string, QStringLiteral("Time in HH:MM 24-hour format, or null if not found"))},
        {QStringLiteral("amount"),
         nullable(QStringLiteral("number"),
                  QStringLiteral("Total amount as a number (no currency symbol), or null if not found"))},
        {QStringLiteral("currency"),
         nullable(string,
                  QStringLiteral("ISO 4217 currency code (e.g. USD, EUR, GBP), or null if not found"))},
        {QStringLiteral("location"),
         nullable(string, QStringLiteral("Merchant name or address, or null if not found"))},
        {QStringLiteral("category"),
         QJsonObject{
             {QStringLiteral("type"), string},
             {QStringLiteral("enum"), categories()},
             {QStringLiteral("description"), QStringLiteral("Best matching category for this receipt")}}},
        {QStringLiteral("summary"),
         QJsonObject{
             {QStringLiteral("type"), string},
             {QStringLiteral("description"), QStringLiteral("One short sentence describing this receipt")}}},
    };
}

QJsonObject responseSchema() {
    return {{QStringLiteral("type"), QStringLiteral("object")},
            {QStringLiteral("properties"), properties()},
            {QStringLiteral("required"),
             QJsonArray{QStringLiteral("date"), QStringLiteral("time"), QStringLiteral("amount"),
                        QStringLiteral("currency"), QStringLiteral("location"), QStringLiteral("category"),
                        QStringLiteral("summary")}}};
}

QJsonObject generationConfig() {
    return {{QStringLiteral("responseMimeType"), QStringLiteral("application/json")},
            {QStringLiteral("responseSchema"), responseSchema()},
            {QStringLiteral("temperature"), 0}};
}

QByteArray compactJson(const QJsonObject &object) {
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

// Appends the rest of the file in base64. Chunks are a multiple of three bytes, so that only the last one is
// padded; the file never lies in memory beside its encoding.
bool appendBase64(QByteArray &body, QFile &file) {
    constexpr qint64 chunkSize = 3 * qint64{64} * 1024;
    while (true) {
        const QByteArray chunk = file.read(chunkSize);
        if (chunk.isEmpty()) {
            return file.error() == QFileDevice::NoError;
        }
        body.append(chunk.toBase64());
        if (chunk.size() % 3 != 0) {
            return true; // only the end of the file comes in less than a chunk
        }
    }
}

} // namespace

QString mimeType(const QString &filePath) {
    static const QHash<QString, QString> types = {
        {QStringLiteral("pdf"), QStringLiteral("application/pdf")},
        {QStringLiteral("png"), QStringLiteral("image/png")},
        {QStringLiteral("jpg"), QStringLiteral("image/jpeg")},
        {QStringLiteral("jpeg"), QStringLiteral("image/jpeg")},
        {QStringLiteral("heic"), QStringLiteral("image/heic")},
        {QStringLiteral("webp"), QStringLiteral("image/webp")},
    };
    return types.value(lowerCased(pathExtension(filePath)), QStringLiteral("application/octet-stream"));
}

std::expected<QByteArray, QString> requestBody(const QString &filePath) {
    QFile file(filePath);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return std::unexpected(file.errorString());
    }
    // Only the small parts go through a JSON library: it would copy a large document several times over.
    const QByteArray head =
        "{\"generationConfig\":" + compactJson(generationConfig()) + ",\"contents\":[{\"parts\":[" +
        compactJson({{QStringLiteral("text"), instruction}}) + ",{\"inlineData\":{\"mimeType\":\"" +
        mimeType(filePath).toLatin1() + "\",\"data\":\"";
    const QByteArray tail = "\"}}]}]}";
    QByteArray body;
    body.reserve(head.size() + (file.size() + 2) / 3 * 4 + tail.size());
    body.append(head);
    if (!appendBase64(body, file)) {
        return std::unexpected(file.errorString());
    }
    body.append(tail);
    return body;
}

} // namespace fennick::GeminiClient
