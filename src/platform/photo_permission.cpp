#include "platform/photo_permission.h"

#include "platform/photo_library.h"
#include "platform/preferences_format.h"

#include <QCoreApplication>
#include <QCoroSignal>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>

#include <memory>

using namespace Qt::StringLiterals;

namespace fennick::PhotoPermission {

namespace {

const QString photosKey = u"photos"_s;

// Permissions.conf beside the preferences: what the user has allowed the program, not how it should behave.
QSettings permissions() {
    return QSettings(preferencesFormat(), QSettings::UserScope, u"Fennick"_s, u"Permissions"_s);
}

// The folder that decides whether the library can be written: its own, or the nearest one that exists.
bool canWriteLibrary() {
    QFileInfo folder(PhotoLibrary::folder());
    while (!folder.exists() && !folder.isRoot()) {
        folder.setFile(folder.path());
    }
    return folder.isDir() && folder.isWritable();
}

void store(const QString &decision) {
    permissions().setValue(photosKey, decision);
}

// Lives until the last request that waits for it has resumed; a waiting task would never learn of the answer
// of a dialog that deletes itself.
std::shared_ptr<QMessageBox> makeQuestion() {
    const std::shared_ptr<QMessageBox> question(new QMessageBox,
                                                [](QMessageBox *box) { box->deleteLater(); });
    question->setObjectName(u"photosAccessQuestion"_s);
    question->setIcon(QMessageBox::Question);
    question->setWindowTitle(QCoreApplication::translate("PhotoPermission", "Photos Access"));
    question->setTextFormat(Qt::PlainText);
    question->setText(QCoreApplication::translate(
        "PhotoPermission", "Fennick would like to add receipts to your photo library."));
    question->setInformativeText(
        QCoreApplication::translate("PhotoPermission",
                                    "JPEG copies of your receipts are put into the folder “%1”.")
            .arg(PhotoLibrary::folder()));
    // Also what closing the dialog means.
    question->addButton(QCoreApplication::translate("PhotoPermission", "Not Now"), QMessageBox::RejectRole);
    const auto *const refuse = question->addButton(
        QCoreApplication::translate("PhotoPermission", "Don’t Allow"), QMessageBox::NoRole);
    auto *const allow =
        question->addButton(QCoreApplication::translate("PhotoPermission", "Allow"), QMessageBox::YesRole);
    question->setDefaultButton(allow);
    QObject::connect(question.get(), &QMessageBox::buttonClicked, question.get(),
                     [allow, refuse](const QAbstractButton *button) {
                         if (button == allow) {
                             store(u"authorized"_s);
                         } else if (button == refuse) {
                             store(u"denied"_s);
                         }
                     });
    return question;
}

} // namespace

Status status() {
    if (!canWriteLibrary()) {
        return Status::restricted;
    }
    const QString stored = permissions().value(photosKey).toString();
    if (stored == u"authorized") {
        return Status::authorized;
    }
    if (stored == u"limited") {
        return Status::limited;
    }
    return stored == u"denied" ? Status::denied : Status::notDetermined;
}

QCoro::Task<Status> request() {
    static std::weak_ptr<QMessageBox> latest;
    std::shared_ptr<QMessageBox> question = latest.lock();
    if (!question || !question->isVisible()) {
        question = makeQuestion();
        latest = question;
        question->open();
    }
    co_await qCoro(question.get(), &QMessageBox::finished);
    co_return status();
}

} // namespace fennick::PhotoPermission
