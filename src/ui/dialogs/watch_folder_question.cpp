#include "ui/dialogs/watch_folder_question.h"

#include "extraction/service_address.h"
#include "settings/preferences.h"
#include "text/display_text.h"
#include "ui/dialogs/wide_text.h"
#include "ui/widgets/symbols.h"

#include <QLocale>
#include <QPushButton>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr int questionSymbolSize = 32;

// Two texts of a number, since English is shown as it stands here, while a translation has plural forms.
QString numberOfFiles(const FolderFacts &facts) {
    const int files = facts.unreadFiles;
    if (files > mostFilesCounted) {
        //: %1 is a number.
        return WatchFolderQuestion::tr("It holds more than %1 unread PDFs and photos.")
            .arg(QLocale().toString(mostFilesCounted));
    }
    if (facts.isCountComplete && files == 0) {
        return WatchFolderQuestion::tr("It holds no unread PDFs or photos at the moment.");
    }
    if (facts.isCountComplete) {
        return files == 1 ? WatchFolderQuestion::tr("It holds 1 unread PDF or photo.")
                          : WatchFolderQuestion::tr("It holds %n unread PDFs and photos.", nullptr, files);
    }
    return files == 0 ? WatchFolderQuestion::tr("Counting its PDFs and photos takes too long.")
                      : WatchFolderQuestion::tr(
                            "It holds at least %n unread PDFs and photos; counting all of them takes "
                            "too long.",
                            nullptr, files);
}

QString whoGetsThem(const QString &serviceAddress) {
    if (isOnDevice(serviceAddress)) {
        return WatchFolderQuestion::tr(
            "“Read All” has this computer read and rename each of them, those in sub-folders "
            "too. They are sent nowhere.");
    }
    if (serviceAddress == Preferences::serviceAddress.standard) {
        return WatchFolderQuestion::tr(
            "“Read All” sends each of them to Google's Gemini service and renames it, those in "
            "sub-folders too.");
    }
    //: %1 is an address on the Internet.
    return WatchFolderQuestion::tr(
               "“Read All” sends each of them to %1 and renames it, those in sub-folders too.")
        .arg(displayText(hostOfService(serviceAddress)));
}

} // namespace

WatchFolderQuestion::WatchFolderQuestion(const QString &folder, const FolderFacts &facts,
                                         const QString &serviceAddress, QWidget *parent)
    : QMessageBox(parent)
    //: Reads every receipt file in the folder; the texts of the question name this button.
    , readAll_(addButton(tr("Read All"), AcceptRole))
    //: Reads only what is added to the folder later; the texts of the question name this button.
    , onlyNewFiles_(addButton(tr("Only New Files"), AcceptRole)) {
    setObjectName(u"watchFolderQuestion"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(u"Fennick"_s);
    setIconPixmap(symbolIcon(Symbol::warning, Tint::warning)
                      .pixmap(QSize(questionSymbolSize, questionSymbolSize), devicePixelRatio()));
    setTextFormat(Qt::PlainText); // paths may look like markup
    setText(tr("Read everything in “%1”?").arg(displayText(folder)));
    setInformativeText(numberOfFiles(facts) + u' ' + whoGetsThem(serviceAddress) + u'\n' +
                       tr("“Only New Files” leaves those that are there now unread for good. In either case "
                          "what is added later is read."));
    QPushButton *const cancel = addButton(tr("Cancel"), RejectRole);
    setDefaultButton(cancel);
    setEscapeButton(cancel);
    widenText(this);
    connect(this, &QDialog::finished, this, [this] { Q_EMIT answered(answer()); });
}

WatchFolderQuestion::Answer WatchFolderQuestion::answer() const {
    if (clickedButton() == readAll_) {
        return Answer::readAll;
    }
    return clickedButton() == onlyNewFiles_ ? Answer::onlyNewFiles : Answer::cancelled;
}

} // namespace fennick
