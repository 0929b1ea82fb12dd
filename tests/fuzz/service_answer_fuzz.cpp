// Any HTTP answer of the service: the last two bytes choose the status, the others are the body.
#include "extraction/gemini_answer.h"
#include "fuzz/invariant.h"
#include "text/characters.h"

#include <fuzzer/FuzzedDataProvider.h>

using namespace fennick;
using fuzz::require;

namespace {

// Half of the answers are 200, or else hardly any body would be looked at.
int consumeStatus(FuzzedDataProvider &input) {
    return input.ConsumeBool() ? 200 : input.ConsumeIntegralInRange(100, 599);
}

void check(const GeminiError &error, int status) {
    using Kind = GeminiError::Kind;
    const bool isErrorStatus = status < 200 || status > 299;
    require(isErrorStatus == (error.kind == Kind::http), "the status decides about this kind of failure");
    require(error.kind != Kind::http || error.code == status, "the failure tells the status");
    require(error.kind != Kind::fileRead, "no file is read");
    require(fuzz::isWellFormed(error.errorDescription()), "the description can be stored");
    if (error.kind == Kind::http || error.kind == Kind::parse) {
        require(firstCharacters(error.text, 500) == error.text, "at most 500 characters are shown");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    FuzzedDataProvider input(data, size);
    const int status = consumeStatus(input);
    const std::string body = input.ConsumeRemainingBytesAsString();
    const auto result = GeminiClient::readAnswer(status, QByteArray::fromStdString(body));
    if (!result) {
        check(result.error(), status);
        return 0;
    }
    require(status >= 200 && status <= 299, "only a good status gives a result");
    require(!result->category.isEmpty() && !result->summary.isEmpty(), "category and summary are filled in");
    return 0;
}
