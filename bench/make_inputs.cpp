// make_inputs FOLDER: makes the documents and pictures that the comparisons of whole programs work on, always
// the same ones: text.pdf and scans.pdf of 20 A4 pages, page.pdf of one, and a photograph of 12 megapixels as
// photo.jpg, photo.png and photo.webp.

#include <QDir>
#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QRandomGenerator>
#include <QStringList>

#include <cstdio>

namespace {

using namespace Qt::StringLiterals;

constexpr int pageCount = 20;
constexpr int linesOnAPage = 60;
constexpr QSize scanSize(2480, 3508); // A4 at 300 pixels an inch
constexpr QSize photoSize(4000, 3000);

QString receiptLine(int page, int line) {
    return u"%1 x  Item number %2 of this long receipt %3.%4 EUR"_s.arg(line % 7 + 1)
        .arg(page * linesOnAPage + line)
        .arg(line * 3 % 97)
        .arg(line * 37 % 100, 2, 10, QLatin1Char('0'));
}

void drawText(QPainter &painter, QRectF area, int page) {
    painter.setPen(QColor(30, 30, 35));
    QFont font(u"DejaVu Sans"_s);
    const double lineHeight = area.height() / (linesOnAPage + 4);
    font.setPixelSize(static_cast<int>(lineHeight * 0.7));
    painter.setFont(font);
    for (int line = 0; line < linesOnAPage; ++line) {
        painter.drawText(QPointF(area.left() + lineHeight * 3, area.top() + lineHeight * (line + 3)),
                         receiptLine(page, line));
    }
}

// What a scanner or a camera adds to every pixel.
void addNoise(QImage &image, int amplitude) {
    QRandomGenerator random(1);
    for (int y = 0; y < image.height(); ++y) {
        auto *const pixels = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int noise = random.bounded(-amplitude, amplitude + 1);
            const auto noisy = [noise](int value) {
                return qBound(0, value + noise, 255);
            };
            const QRgb pixel = pixels[x];
            pixels[x] = qRgb(noisy(qRed(pixel)), noisy(qGreen(pixel)), noisy(qBlue(pixel)));
        }
    }
}

QImage scannedPage(int page) {
    QImage image(scanSize, QImage::Format_RGB32);
    image.fill(QColor(246, 244, 238));
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        drawText(painter, image.rect(), page);
    }
    addNoise(image, 4);
    return image;
}

// A receipt on a table with the light from one side.
QImage photograph() {
    QImage image(photoSize, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient table(0, 0, photoSize.width(), photoSize.height());
    table.setColorAt(0, QColor(120, 84, 52));
    table.setColorAt(1, QColor(62, 40, 28));
    painter.fillRect(image.rect(), table);
    painter.translate(photoSize.width() / 2, photoSize.height() / 2);
    painter.rotate(7);
    const QRectF paper(-900, -1350, 1800, 2700);
    QLinearGradient light(paper.topLeft(), paper.bottomRight());
    light.setColorAt(0, QColor(250, 248, 240));
    light.setColorAt(1, QColor(205, 200, 190));
    painter.fillRect(paper, light);
    drawText(painter, paper, 0);
    painter.end();
    addNoise(image, 6);
    return image;
}

QPdfWriter &onA4(QPdfWriter &writer, int resolution) {
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins({});
    writer.setResolution(resolution);
    return writer;
}

void writeTextDocument(const QString &path, int pages) {
    QPdfWriter writer(path);
    QPainter painter(&onA4(writer, 300));
    for (int page = 0; page < pages; ++page) {
        if (page > 0) {
            writer.newPage();
        }
        drawText(painter, QRectF(0, 0, writer.width(), writer.height()), page);
    }
}

void writeScannedDocument(const QString &path) {
    QPdfWriter writer(path);
    QPainter painter(&onA4(writer, 300));
    for (int page = 0; page < pageCount; ++page) {
        if (page > 0) {
            writer.newPage();
        }
        painter.drawImage(QRect(0, 0, writer.width(), writer.height()), scannedPage(page));
    }
}

bool writePhotographs(const QDir &folder) {
    const QImage image = photograph();
    return image.save(folder.filePath(u"photo.jpg"_s), "jpg", 92) &&
           image.save(folder.filePath(u"photo.png"_s), "png") &&
           image.save(folder.filePath(u"photo.webp"_s), "webp", 90);
}

} // namespace

int main(int argc, char *argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 2 || !QDir().mkpath(arguments.at(1))) {
        std::fprintf(stderr, "usage: make_inputs FOLDER\n");
        return 2;
    }
    const QDir folder(arguments.at(1));
    writeTextDocument(folder.filePath(u"text.pdf"_s), pageCount);
    writeTextDocument(folder.filePath(u"page.pdf"_s), 1);
    writeScannedDocument(folder.filePath(u"scans.pdf"_s));
    return writePhotographs(folder) ? 0 : 1;
}
