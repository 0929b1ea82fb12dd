#include "numbered_receipts.h"

#include <QBuffer>
#include <QImage>

namespace fennick::test {

using namespace Qt::StringLiterals;

QByteArray numberedPicture(int number) {
    QImage image(40, 60, QImage::Format_RGB32);
    image.fill(qRgb(200, 200, number));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}

int numberIn(const HttpRequest &request) {
    const QByteArray document = inlineDocument(request);
    constexpr int most = 31;
    for (int number = 1; number <= most; ++number) {
        if (document == numberedPicture(number)) {
            return number;
        }
    }
    return 0;
}

QString shop(int number) {
    return u"Shop %1"_s.arg(number);
}

QByteArray numberedAnswer(int number) {
    return u"{\"date\": \"2024-05-%1\", \"amount\": %2.5, \"currency\": \"USD\", \"location\": \"%3\", "
           "\"category\": \"lunch\", \"summary\": \"Receipt %2.\"}"_s.arg(number, 2, 10, QLatin1Char('0'))
               .arg(number)
               .arg(shop(number))
               .toUtf8();
}

} // namespace fennick::test
