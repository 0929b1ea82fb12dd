#include "engine/fields/merchant_reader.h"

#include "engine/fields/company_names.h"
#include "engine/fields/number_reader.h"
#include "engine/fields/text_vote.h"
#include "engine/knowledge/words.h"
#include "text/edit_distance.h"

#include <QRegularExpression>
#include <QSet>
#include <QStringList>

#include <algorithm>

namespace fennick::engine {

using namespace Qt::StringLiterals;

namespace {

// A name stands at the top; further down are the things bought.
constexpr qsizetype linesLookedAt = 12;
constexpr qsizetype linesOfAnother = 3;
// Below this a recognised line is more often a logo or a smudge than words.
constexpr double leastConfidence = 0.3;
constexpr double trustedConfidence = 0.5;
constexpr double largePrint = 1.25;
constexpr double sameHeight = 0.25;
// How alike two readings of one name are at least.
constexpr double sameName = 0.6;
constexpr double samePrint = 0.75;
// As much as a legal form, which the company that runs a shop has and the name on its sign has not.
constexpr double byWebAddress = 4;
constexpr double operatorLoss = 3;
constexpr qsizetype shortestHost = 5;

struct NameCandidate {
    QString name;
    double score = 0;
    double confidence = 0;
};

double typicalHeight(const Reading &reading) {
    QList<double> heights;
    for (const TextLine &line : reading) {
        heights.append(line.box.height());
    }
    std::ranges::sort(heights);
    return heights.isEmpty() ? 0 : heights[heights.size() / 2];
}

bool isItem(const QString &line) {
    return std::ranges::any_of(printedNumbers(line), &PrintedNumber::hasDecimals);
}

bool canBeName(const QString &line, const QString &name, const MerchantLines &lines) {
    return isMostlyLetters(name) && !lines.isHeading(name) && !lines.isDetail(name) && !isItem(line);
}

// Scribbles and logos come out as many short words or signs: "o ku wz", "EA 7 Vi".
double wordQuality(const QString &name) {
    const QStringList words = wordsOf(name).split(u' ', Qt::SkipEmptyParts);
    qsizetype longest = 0;
    for (const QString &word : words) {
        longest = std::max(longest, word.size());
    }
    if (longest <= 3) {
        return -2.5;
    }
    const bool isLowerCase = name == name.toLower();
    return isLowerCase ? -1.5 : 0;
}

// Whether the name goes on in the line below: brackets that are still open, or a line that begins no name by
// itself.
bool goesOn(const TextLine &line, const TextLine &next, const QString &name, const QString &nextName,
            double typical, const MerchantLines &lines) {
    if (next.page != line.page || lines.hasLegalForm(name)) {
        return false;
    }
    if (isOnlyLegalForm(nextName, lines) || name.count(u'(') > name.count(u')') ||
        nextName.startsWith(u'(') || nextName.startsWith(u'&') || name.endsWith(u'&')) {
        return true;
    }
    const double taller = std::max(line.box.height(), next.box.height());
    const bool areAlike = std::abs(line.box.height() - next.box.height()) <= sameHeight * taller;
    const bool areLarge = std::min(line.box.height(), next.box.height()) >= largePrint * typical;
    return areAlike && areLarge && lines.hasLegalForm(nextName);
}

// The names of the web addresses in a reading, without their ends.
QSet<QString> hostsIn(const Reading &reading) {
    static const QRegularExpression address(
        uR"((?<![\p{L}\d@.])(?:https?://)?(?:www\.)?([\p{L}\d\-]{4,40})\.(?:com|net|org|co|[a-z]{2})(?![\p{L}\d]))"_s,
        QRegularExpression::CaseInsensitiveOption);
    QSet<QString> hosts;
    for (const TextLine &line : reading) {
        QRegularExpressionMatchIterator matches = address.globalMatch(line.text);
        while (matches.hasNext()) {
            const QString host = withoutAccents(matches.next().captured(1).toLower()).remove(u'-');
            if (host.size() >= shortestHost) {
                hosts.insert(host);
            }
        }
    }
    return hosts;
}

// "JKM Foods Inc" below the name on the sign is who runs the shop.
bool isOperator(const QString &name) {
    static const QStringList words = {u"holdings"_s, u"holding"_s,   u"group"_s,       u"management"_s,
                                      u"foods"_s,    u"ventures"_s,  u"hospitality"_s, u"investments"_s,
                                      u"partners"_s, u"operations"_s};
    return containsAnyPhrase(withoutAccents(wordsOf(name)), words);
}

// The candidates of one reading, best first.
class ReadingNames {
public:
    ReadingNames(const Reading &reading, const MerchantLines &lines)
        : lines_(lines)
        , reading_(reading.first(std::min(linesLookedAt, reading.size())))
        , hosts_(hostsIn(reading))
        , typical_(typicalHeight(reading)) {
        qsizetype anotherUntil = -1;
        for (qsizetype index = 0; index < reading_.size(); ++index) {
            if (lines_.introducesAnother(reading_[index].text)) {
                anotherUntil = index + linesOfAnother;
            }
            if (index > anotherUntil) {
                add(index);
            }
        }
    }

    const QList<NameCandidate> &candidates() const { return candidates_; }

private:
    void add(qsizetype index) {
        const TextLine &line = reading_[index];
        QString name = companyName(line.text, lines_);
        if (line.confidence < leastConfidence || !canBeName(line.text, name, lines_)) {
            return;
        }
        double points = 3 - 0.35 * static_cast<double>(index) + wordQuality(name);
        points += lines_.isRegistration(line.text) ? 1.5 : 0;
        points += line.box.height() >= largePrint * typical_ ? 0.5 : 0;
        qsizetype last = index;
        while (last + 1 < reading_.size()) {
            const TextLine &next = reading_[last + 1];
            const QString nextName = companyName(next.text, lines_);
            if (!isMostlyLetters(nextName) || lines_.isHeading(nextName) || isItem(next.text) ||
                !goesOn(reading_[last], next, name, nextName, typical_, lines_)) {
                break;
            }
            name += u' ' + nextName;
            ++last;
        }
        points += lines_.hasLegalForm(name) ? 4 : (lines_.hasBusinessWord(name) ? 2 : 0);
        const bool isRegistered =
            last + 1 < reading_.size() && lines_.isRegistration(reading_[last + 1].text);
        points += isRegistered ? 1 : 0;
        points += hasProperName_ ? 0 : 1;
        points -= hasProperName_ && isOperator(name) ? operatorLoss : 0;
        points += isNamedInAddress(name) ? byWebAddress : 0;
        hasProperName_ = hasProperName_ || wordQuality(name) >= 0;
        points -= isOnlyLegalForm(name, lines_) ? 4 : 0;
        const double trust = line.confidence < trustedConfidence ? 0.4 : 1;
        candidates_.append({name, points * trust * (0.4 + 0.6 * line.confidence), line.confidence});
    }

    const MerchantLines &lines_;
    // "www.cornershop.com" belongs to the corner shop, not to the company that runs it.
    bool isNamedInAddress(const QString &name) const {
        const QString letters = withoutAccents(wordsOf(name)).remove(u' ');
        return std::ranges::any_of(hosts_, [&letters](const QString &host) {
            return (letters.contains(host) && 2 * host.size() >= letters.size()) ||
                   (letters.size() >= shortestHost && host.contains(letters));
        });
    }

    Reading reading_;
    QSet<QString> hosts_;
    double typical_;
    QList<NameCandidate> candidates_;
    bool hasProperName_ = false;
};

double likeness(const QString &left, const QString &right) {
    return similarity(wordsOf(left), wordsOf(right));
}

// What the readings have of one name.
struct NameGroup {
    QList<NameCandidate> members;
    double score = 0;

    bool takes(const NameCandidate &candidate) const {
        return std::ranges::any_of(members, [&](const NameCandidate &member) {
            return likeness(member.name, candidate.name) >= sameName;
        });
    }

    // The one that scores well and is most like the others, surely read ones counting more, each of its
    // letters put to their vote.
    QString text() const {
        QString best;
        double bestSum = -1;
        for (const NameCandidate &member : members) {
            double sum = member.score / 4;
            for (const NameCandidate &other : members) {
                sum += other.confidence * likeness(member.name, other.name);
            }
            if (sum > bestSum) {
                bestSum = sum;
                best = member.name;
            }
        }
        QList<TextVote> votes;
        for (const NameCandidate &member : members) {
            // What has more or fewer words is no other reading of the same print.
            if (likeness(member.name, best) >= samePrint) {
                votes.append({member.name, member.confidence});
            }
        }
        return votedText(best, votes);
    }
};

} // namespace

std::optional<QString> readMerchant(const QList<Reading> &readings, const MerchantLines &lines) {
    QList<NameGroup> groups;
    for (const Reading &reading : readings) {
        const ReadingNames names(reading, lines);
        for (const NameCandidate &candidate : names.candidates()) {
            const auto group =
                std::ranges::find_if(groups, [&](const NameGroup &known) { return known.takes(candidate); });
            if (group == groups.end()) {
                groups.append({{candidate}, candidate.score});
            } else {
                group->members.append(candidate);
                group->score += candidate.score;
            }
        }
    }
    const auto best = std::ranges::max_element(groups, {}, &NameGroup::score);
    if (best == groups.end() || best->score <= 0) {
        return std::nullopt;
    }
    return best->text();
}

} // namespace fennick::engine
