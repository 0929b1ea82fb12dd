#include "ui/dialogs/watch_folder_request.h"

#include "pipeline/app_state.h"
#include "settings/settings_store.h"

namespace fennick {

void WatchFolderRequest::start(const QString &folder, QWidget *parent, AppState *appState,
                               SettingsStore *settings) {
    delete appState->findChild<WatchFolderRequest *>(QString(), Qt::FindDirectChildrenOnly);
    new WatchFolderRequest(folder, parent, appState, settings);
}

WatchFolderRequest::WatchFolderRequest(const QString &folder, QWidget *parent, AppState *appState,
                                       SettingsStore *settings)
    : QObject(appState)
    , folder_(folder)
    , parent_(parent)
    , appState_(appState)
    , settings_(settings)
    , survey_(appState->survey(folder)) {
    connect(survey_.get(), &FolderSurvey::finished, this, &WatchFolderRequest::decide);
}

WatchFolderRequest::~WatchFolderRequest() {
    delete question_;
}

void WatchFolderRequest::decide(const FolderFacts &facts) {
    if (needsConsent(facts)) {
        ask(facts);
    } else {
        follow(WatchFolderQuestion::Answer::readAll);
    }
}

// A question whose window is closed is gone unanswered.
void WatchFolderRequest::ask(const FolderFacts &facts) {
    question_ = new WatchFolderQuestion(folder_, facts, settings_->serviceAddress(), parent_);
    connect(question_, &WatchFolderQuestion::answered, this, &WatchFolderRequest::follow);
    connect(question_, &QObject::destroyed, this, &QObject::deleteLater);
    question_->open();
}

void WatchFolderRequest::follow(WatchFolderQuestion::Answer answer) {
    using Answer = WatchFolderQuestion::Answer;
    if (answer != Answer::cancelled) {
        appState_->admitFolder(folder_,
                               answer == Answer::readAll ? ExistingFiles::read : ExistingFiles::ignored);
    }
    deleteLater();
}

} // namespace fennick
