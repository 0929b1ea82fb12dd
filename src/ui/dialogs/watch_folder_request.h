#pragma once

#include "ui/dialogs/watch_folder_question.h"

#include <QObject>
#include <QPointer>

#include <memory>

namespace fennick {

class AppState;
class FolderSurvey;
class SettingsStore;

// The way of a chosen folder until it is watched: it is looked at, and the user is asked if it holds more
// than was perhaps meant. There is one at a time: a later choice replaces it. Belongs to the pipeline's
// controller, since the window may be closed meanwhile; deletes itself at its end. Main thread.
class WatchFolderRequest : public QObject {
    Q_OBJECT

public:
    static void start(const QString &folder, QWidget *parent, AppState *appState, SettingsStore *settings);
    ~WatchFolderRequest() override;

private:
    WatchFolderRequest(const QString &folder, QWidget *parent, AppState *appState, SettingsStore *settings);
    void decide(const FolderFacts &facts);
    void ask(const FolderFacts &facts);
    void follow(WatchFolderQuestion::Answer answer);

    QString folder_;
    QPointer<QWidget> parent_;
    AppState *appState_;
    SettingsStore *settings_;
    std::unique_ptr<FolderSurvey> survey_;
    QPointer<WatchFolderQuestion> question_;
};

} // namespace fennick
