#include "ui/dialogs/folder_chooser.h"

#include "platform/file_system_answer.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>

namespace fennick {

using namespace Qt::StringLiterals;

std::optional<QString> chooseFolder(QWidget *parent, const QString &confirmText,
                                    const std::optional<QString> &startFolder, NewFolders newFolders) {
    const bool canStartThere =
        startFolder && fileSystemAnswers(*startFolder) && QFileInfo(*startFolder).isDir();
    // Not on the stack: the parent deletes its dialogs with itself.
    const QPointer<QFileDialog> dialog(
        new QFileDialog(parent, QCoreApplication::translate("FolderChooser", "Choose a Folder"),
                        canStartThere ? *startFolder : QDir::homePath()));
    dialog->setObjectName(u"folderChooser"_s);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    dialog->setOption(QFileDialog::ReadOnly, newFolders == NewFolders::refused);
    dialog->setLabelText(QFileDialog::Accept, confirmText);
    const int result = dialog->exec();
    if (!dialog) {
        return std::nullopt;
    }
    dialog->deleteLater();
    const QStringList chosen = dialog->selectedFiles();
    if (result != QDialog::Accepted || chosen.isEmpty()) {
        return std::nullopt;
    }
    return chosen.first();
}

} // namespace fennick
