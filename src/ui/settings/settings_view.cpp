#include "ui/settings/settings_view.h"

#include "settings/settings_store.h"
#include "ui/dialogs/folder_chooser.h"
#include "ui/dialogs/watch_folder_chooser.h"
#include "ui/settings/settings_folder_row.h"
#include "ui/settings/settings_gemini_section.h"
#include "ui/settings/settings_photos_section.h"
#include "ui/settings/settings_section.h"
#include "ui/widgets/switch_control.h"

#include <QScrollArea>
#include <QShortcut>
#include <QShowEvent>
#include <QVBoxLayout>

#include <utility>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize windowSize(460, 520);
constexpr int formMargin = 20;
constexpr int sectionSpacing = 18;

} // namespace

SettingsView::SettingsView(AppState *appState, SettingsStore *settings, bool canHideFromTaskBar,
                           QWidget *parent)
    : QWidget(parent, Qt::Window)
    , appState_(appState)
    , settings_(settings)
    , isInMenuBarMode_(settings->menuBarMode()) {
    setObjectName(u"settings"_s);
    setWindowTitle(tr("Fennick Settings"));
    setFixedSize(windowSize);

    auto *const form = new QWidget;
    auto *const sections = new QVBoxLayout(form);
    sections->setContentsMargins(formMargin, formMargin - 4, formMargin, formMargin);
    sections->setSpacing(sectionSpacing);
    gemini_ = new SettingsGeminiSection(settings);
    photos_ = new SettingsPhotosSection(settings);
    sections->addWidget(makeWatchedFolderSection());
    sections->addWidget(gemini_);
    sections->addWidget(photos_);
    sections->addWidget(makeArchiveSection());
    sections->addWidget(makeStartupSection(canHideFromTaskBar));
    sections->addStretch();
    showScrolling(form);

    for (const QKeySequence &keys : {QKeySequence(Qt::Key_Escape), QKeySequence(Qt::CTRL | Qt::Key_W)}) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, &SettingsView::close);
    }
    connect(settings, &SettingsStore::changed, this, &SettingsView::showSettings);
    connect(settings, &SettingsStore::changed, this, &SettingsView::announceMenuBarMode);
    showSettings();
}

void SettingsView::showEvent(QShowEvent *event) {
    QWidget::showEvent(event);
    // The window system shows a window again after it was minimised; what is being typed stays.
    if (event->spontaneous()) {
        return;
    }
    gemini_->loadKey();
    photos_->showStatus();
}

void SettingsView::showScrolling(QWidget *form) {
    auto *const area = new QScrollArea(this);
    area->setObjectName(u"settingsScrollArea"_s);
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::ClickFocus); // scrolls by keys until a control is reached by Tab
    area->setWidget(form);
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(area);
    area->setFocus();
}

SettingsSection *SettingsView::makeWatchedFolderSection() {
    auto *const section = new SettingsSection(tr("Watched Folder"));
    section->setObjectName(u"watchedFolderSection"_s);
    watchFolder_ =
        new SettingsFolderRow(u"watchFolder"_s, tr("Watched folder"), SettingsFolderRow::Reset::notOffered);
    section->rows()->addWidget(watchFolder_);
    section->addExplanation(tr("New PDFs and photos dropped here are scanned automatically."));
    connect(watchFolder_, &SettingsFolderRow::chooseRequested, this,
            [this] { chooseWatchFolder(this, appState_, settings_); });
    return section;
}

SettingsSection *SettingsView::makeArchiveSection() {
    auto *const section = new SettingsSection(tr("Archive"));
    section->setObjectName(u"archiveSection"_s);
    archiveFolder_ =
        new SettingsFolderRow(u"archiveFolder"_s, tr("Archive folder"), SettingsFolderRow::Reset::offered);
    section->addExplanation(tr("“Archive & Clear” saves each batch — the receipt files "
                               "and a CSV/HTML ledger — into a dated subfolder here."));
    section->rows()->addWidget(archiveFolder_);
    connect(archiveFolder_, &SettingsFolderRow::resetRequested, settings_,
            [this] { settings_->setArchiveFolderPath(std::nullopt); });
    connect(archiveFolder_, &SettingsFolderRow::chooseRequested, this, &SettingsView::chooseArchiveFolder);
    return section;
}

SettingsSection *SettingsView::makeStartupSection(bool canHideFromTaskBar) {
    auto *const section = new SettingsSection(tr("Startup & Background"));
    section->setObjectName(u"startupSection"_s);
    launchAtLogin_ = new SwitchControl(tr("Launch at login"));
    launchAtLogin_->setObjectName(u"launchAtLogin"_s);
    //: An entry in the desktop's tray and none in its task bar.
    menuBarMode_ = new SwitchControl(tr("Run in menu bar (hide Dock icon)"));
    menuBarMode_->setObjectName(u"menuBarMode"_s);
    if (!canHideFromTaskBar) {
        const QString limit = tr("On this desktop a program cannot hide its own task-bar entry, so the entry "
                                 "stays.");
        menuBarMode_->setToolTip(limit);
        menuBarMode_->setAccessibleDescription(limit);
    }
    section->addSwitch(launchAtLogin_);
    section->addSwitch(menuBarMode_);
    connect(launchAtLogin_, &SwitchControl::toggled, settings_, &SettingsStore::setOpenAtLogin);
    connect(menuBarMode_, &SwitchControl::toggled, settings_, &SettingsStore::setMenuBarMode);
    return section;
}

void SettingsView::showSettings() {
    watchFolder_->showFolder(settings_->watchFolderPath(), tr("None selected"));
    archiveFolder_->showFolder(settings_->archiveFolderPath(),
                               tr("Default: “Receipt Archive” inside the watched folder"));
    launchAtLogin_->showValue(settings_->openAtLogin());
    menuBarMode_->showValue(settings_->menuBarMode());
}

void SettingsView::announceMenuBarMode() {
    const bool menuBarMode = settings_->menuBarMode();
    if (std::exchange(isInMenuBarMode_, menuBarMode) != menuBarMode) {
        Q_EMIT menuBarModeChanged(menuBarMode);
    }
}

void SettingsView::chooseArchiveFolder() {
    SettingsStore *const settings = settings_; // this window may be gone when the dialog closes
    const auto path =
        chooseFolder(this, tr("Archive Here"), settings->archiveFolderPath(), NewFolders::allowed);
    if (path) {
        settings->setArchiveFolderPath(*path);
    }
}

} // namespace fennick
