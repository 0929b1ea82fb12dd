#include "ui/widgets/symbols.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>

// Resources of a static library are linked in only when something asks for them; outside every namespace.
static void initialiseSymbols() {
    Q_INIT_RESOURCE(symbols);
}

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

QString drawingOf(Symbol symbol) {
    switch (symbol) {
    case Symbol::addToPhotos:
        return u"image-plus"_s;
    case Symbol::archive:
        return u"archive"_s;
    case Symbol::chooseFolder:
        return u"folder"_s;
    case Symbol::clear:
        return u"trash-2"_s;
    case Symbol::done:
        return u"circle-check-filled"_s;
    case Symbol::exportLedger:
        return u"share"_s;
    case Symbol::keySaved:
        return u"badge-check-filled"_s;
    case Symbol::photos:
        return u"images"_s;
    case Symbol::receipts:
        return u"file-search"_s;
    case Symbol::refused:
        return u"circle-x-filled"_s;
    case Symbol::retry:
        return u"rotate-cw"_s;
    case Symbol::reveal:
        return u"search"_s;
    case Symbol::warning:
        return u"triangle-alert-filled"_s;
    case Symbol::watchedFolder:
        return u"folder-filled"_s;
    }
    Q_UNREACHABLE();
}

QByteArray vectorsOf(const QString &drawing) {
    initialiseSymbols();
    QFile file(u":/symbols/%1.svg"_s.arg(drawing));
    const bool isOpen = file.open(QIODevice::ReadOnly);
    Q_ASSERT(isOpen);
    return isOpen ? file.readAll() : QByteArray();
}

bool isDark(const QPalette &palette) {
    return palette.color(QPalette::Base).lightness() < 128;
}

class SymbolIconEngine : public QIconEngine {
public:
    SymbolIconEngine(const QString &drawing, Tint tint)
        : vectors_(vectorsOf(drawing))
        , tint_(tint) {}

    void paint(QPainter *painter, const QRect &rectangle, QIcon::Mode mode, QIcon::State) override {
        QByteArray tinted = vectors_;
        tinted.replace("currentColor", color(mode).name().toLatin1());
        QSvgRenderer renderer(tinted);
        renderer.setAspectRatioMode(Qt::KeepAspectRatio);
        painter->setRenderHint(QPainter::Antialiasing);
        renderer.render(painter, rectangle);
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    QIconEngine *clone() const override { return new SymbolIconEngine(*this); }

private:
    QColor color(QIcon::Mode mode) const {
        const QPalette palette = QGuiApplication::palette();
        switch (mode) {
        case QIcon::Disabled:
            return palette.color(QPalette::Disabled, QPalette::Text);
        case QIcon::Selected:
            return palette.color(QPalette::HighlightedText);
        default:
            return tintColor(tint_, palette);
        }
    }

    QByteArray vectors_;
    Tint tint_;
};

} // namespace

QColor tintColor(Tint tint, const QPalette &palette) {
    const bool onDark = isDark(palette);
    switch (tint) {
    case Tint::primary:
        return palette.color(QPalette::Text);
    case Tint::secondary:
        return onDark ? QColor(0xA8, 0xAC, 0xB3) : QColor(0x5F, 0x63, 0x68);
    case Tint::success:
        return onDark ? QColor(0x5F, 0xD0, 0x7F) : QColor(0x1A, 0x7F, 0x37);
    case Tint::warning:
        return onDark ? QColor(0xFF, 0xA6, 0x57) : QColor(0xB3, 0x54, 0x00);
    case Tint::selection:
        return palette.color(QPalette::HighlightedText);
    case Tint::failure:
        return onDark ? QColor(0xFF, 0x8A, 0x80) : QColor(0xC6, 0x28, 0x28);
    }
    Q_UNREACHABLE();
}

QIcon symbolIcon(Symbol symbol, Tint tint) {
    return QIcon(new SymbolIconEngine(drawingOf(symbol), tint));
}

QIcon programIcon() {
    return QIcon(new SymbolIconEngine(u"fennick"_s, Tint::primary));
}

} // namespace fennick
