#include "kinds/document_kind.h"

#include "text/characters.h"
#include "text/path_text.h"

#include <QList>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace fennick {

namespace {

constexpr char anyByte = '?';

struct KindDescription {
    DocumentKind kind;
    QList<QLatin1StringView> extensions;
    QList<QLatin1StringView> mimeTypes;
    // Alternatives; `anyByte` stands for any byte.
    QList<QByteArrayView> signatures;
    // How many bytes may precede the signature.
    qsizetype mostBytesBefore = 0;
};

// In the order in which signatures are looked for.
const std::array<KindDescription, 7> &kinds() {
    static const std::array<KindDescription, 7> table{{
        // Up to a kilobyte of other bytes may precede the header (PDF 1.7, annex H, note 13).
        {DocumentKind::pdf, {"pdf"_L1}, {"application/pdf"_L1}, {"%PDF-"}, 1024 - 5},
        {DocumentKind::jpeg, {"jpg"_L1, "jpeg"_L1}, {"image/jpeg"_L1}, {"\xFF\xD8\xFF"}},
        {DocumentKind::png, {"png"_L1}, {"image/png"_L1}, {"\x89PNG\r\n\x1A\n"}},
        {DocumentKind::webp, {"webp"_L1}, {"image/webp"_L1}, {"RIFF????WEBP"}},
        // The brands of pictures and picture sequences coded in HEVC, and those that leave the coding open
        // (ISO/IEC 23008-12, annexes B and C).
        {DocumentKind::heif,
         {"heic"_L1},
         {"image/heic"_L1, "image/heif"_L1},
         {"????ftypheic", "????ftypheix", "????ftypheim", "????ftypheis", "????ftyphevc", "????ftypmif1",
          "????ftypmsf1"}},
        {DocumentKind::gif, {}, {}, {"GIF8"}},
        {DocumentKind::bmp, {}, {}, {"BM"}},
    }};
    return table;
}

template <typename Condition>
std::optional<DocumentKind> firstKind(const Condition &condition) {
    const auto found = std::ranges::find_if(kinds(), condition);
    return found == kinds().end() ? std::nullopt : std::optional(found->kind);
}

bool matches(char byte, char expected) {
    return expected == anyByte || byte == expected;
}

bool hasSignature(QByteArrayView content, const KindDescription &description) {
    return std::ranges::any_of(description.signatures, [&](QByteArrayView signature) {
        const auto start =
            content.first(std::min(content.size(), signature.size() + description.mostBytesBefore));
        return !std::ranges::search(start, signature, matches).empty();
    });
}

} // namespace

std::optional<DocumentKind> kindOfName(const QString &path) {
    const QString extension = lowerCased(pathExtension(path));
    return firstKind(
        [&](const KindDescription &description) { return description.extensions.contains(extension); });
}

std::optional<DocumentKind> kindOfMimeType(const QString &mimeType) {
    return firstKind(
        [&](const KindDescription &description) { return description.mimeTypes.contains(mimeType); });
}

std::optional<DocumentKind> kindOfContent(QByteArrayView content) {
    return firstKind([&](const KindDescription &description) { return hasSignature(content, description); });
}

QString mimeTypeOf(DocumentKind kind) {
    const auto found = std::ranges::find(kinds(), kind, &KindDescription::kind);
    return found->mimeTypes.isEmpty() ? QString() : QString(found->mimeTypes.first());
}

} // namespace fennick
