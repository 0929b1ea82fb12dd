#pragma once

#include "pipeline/folder_facts.h"

#include <QMessageBox>

namespace fennick {

// Asks before a folder is watched that may give away more than was meant: how many files it holds, and who
// gets them. Cancelled by default; main thread.
class WatchFolderQuestion : public QMessageBox {
    Q_OBJECT

public:
    enum class Answer { readAll, onlyNewFiles, cancelled };

    WatchFolderQuestion(const QString &folder, const FolderFacts &facts, const QString &serviceAddress,
                        QWidget *parent);

Q_SIGNALS:
    void answered(fennick::WatchFolderQuestion::Answer answer);

private:
    Answer answer() const;

    QPushButton *readAll_;
    QPushButton *onlyNewFiles_;
};

} // namespace fennick
