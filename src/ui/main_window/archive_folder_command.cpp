#include "ui/main_window/archive_folder_command.h"

#include "extraction/gemini_error.h"
#include "pipeline/app_state.h"
#include "platform/file_manager.h"
#include "platform/file_system_answer.h"
#include "text/display_text.h"
#include "ui/dialogs/wide_text.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QMessageBox>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

// Empty if it can be opened.
QString obstacleTo(const std::optional<QString> &folder) {
    if (!folder) {
        return QCoreApplication::translate("ArchiveFolderCommand",
                                           "There is neither an archive folder nor a watched folder yet.");
    }
    if (!fileSystemAnswers(*folder)) {
        return inUsersLanguage(FileProblem{FileProblem::Kind::noAnswer, {}}.description());
    }
    if (!QFileInfo(*folder).isDir()) {
        //: %1 is a folder.
        return QCoreApplication::translate("ArchiveFolderCommand",
                                           "Nothing was archived yet: “%1” does not exist.")
            .arg(displayText(*folder));
    }
    return {};
}

} // namespace

void openArchiveFolder(QWidget *window, const AppState *appState) {
    const auto folder = appState->archiveRoot();
    const QString obstacle = obstacleTo(folder);
    if (obstacle.isEmpty()) {
        FileManager::open(*folder);
        return;
    }
    auto *const box = new QMessageBox(window);
    box->setObjectName(u"noArchiveFolder"_s);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowTitle(u"Fennick"_s);
    box->setTextFormat(Qt::PlainText); // paths may look like markup
    box->setText(QCoreApplication::translate("ArchiveFolderCommand", "The archive folder cannot be opened."));
    box->setInformativeText(obstacle);
    box->addButton(QMessageBox::Close);
    widenText(box);
    box->open();
}

} // namespace fennick
