#include "samples/picture_effects.h"
#include "samples/sample_files.h"
#include "samples/sample_receipts.h"

#include <QDir>
#include <QGuiApplication>

#include <cstdio>

using namespace fennick;
using namespace Qt::StringLiterals;

namespace {

bool writeAll(const QDir &folder) {
    const auto path = [&folder](const QString &name) {
        return folder.filePath(name);
    };
    return writeTextPdf(path(u"invoice.pdf"_s), {hotelInvoice()}) &&
           writeTextPdf(path(u"order-48213.pdf"_s), officeOrder()) &&
           writeTextPdf(path(u"ticket.pdf"_s), {breakfastTicket()}) &&
           writeTextPdf(path(u"biljetter.pdf"_s), {cinemaTickets()}) &&
           writeScannedPdf(path(u"scan0001.pdf"_s), scanned(pictureOf(pubDinner(), 1300, true), 0.8)) &&
           writePicture(path(u"scan0002.png"_s), pictureOf(firstCoffee(), 640, true), "PNG", 0) &&
           writePicture(path(u"scan0003.png"_s), pictureOf(secondCoffee(), 640, true), "PNG", 0) &&
           writePicture(path(u"scan0004.png"_s), pictureOf(recipe(), 760, false), "PNG", 0) &&
           writePicture(path(u"receipt.png"_s), pictureOf(supermarket(), 640, true), "PNG", 0) &&
           writePicture(path(u"parking.png"_s), pictureOf(parkingTicket(), 560, false), "PNG", 0) &&
           writeTurnedJpeg(path(u"IMG_2041.jpg"_s), photographed(pictureOf(deliLunch(), 1000, false)), 82) &&
           writePicture(path(u"taxi.jpeg"_s), photographed(pictureOf(taxiRide(), 800, true)), "JPG", 80) &&
           writePicture(path(u"photo.webp"_s), photographed(pictureOf(roastery(), 900, false)), "WEBP", 75) &&
           writeHeic(path(u"IMG_0117.HEIC"_s), photographed(pictureOf(fillingStation(), 1000, true)), 55);
}

} // namespace

int main(int argc, char *argv[]) {
    const QGuiApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() != 2 || !QDir().mkpath(arguments[1])) {
        std::fprintf(stderr, "usage: make_samples FOLDER\n");
        return 2;
    }
    if (!writeAll(QDir(arguments[1]))) {
        std::fprintf(stderr, "make_samples: a file could not be written\n");
        return 1;
    }
    return 0;
}
