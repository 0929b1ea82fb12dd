#include "ui/settings/settings_gemini_section.h"

#include "settings/settings_store.h"
#include "ui/widgets/caption_label.h"
#include "ui/widgets/rounded_field.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

constexpr int gridSpacing = 8;

} // namespace

SettingsGeminiSection::SettingsGeminiSection(SettingsStore *settings, QWidget *parent)
    : SettingsSection(tr("Gemini"), parent)
    , settings_(settings)
    , key_(new RoundedField(this))
    , keySaved_(new CaptionLabel(tr("Key saved"), Tint::success, Symbol::keySaved, this))
    , model_(new RoundedField(this)) {
    setObjectName(u"geminiSection"_s);
    key_->setObjectName(u"apiKey"_s);
    key_->setAccessibleName(tr("API Key"));
    key_->setEchoMode(QLineEdit::Password);
    keySaved_->setObjectName(u"keySaved"_s);
    keySaved_->setWordWrap(true);
    keySaved_->hide();
    model_->setObjectName(u"model"_s);
    model_->setAccessibleName(tr("Model"));
    layOut();
    connect(&storedKey_, &QFutureWatcher<std::optional<QString>>::finished, this,
            &SettingsGeminiSection::showStoredKey);
    // Not only what is typed: assistive tools set the whole text.
    connect(model_, &QLineEdit::textChanged, settings, &SettingsStore::setModel);
    connect(settings, &SettingsStore::changed, this, &SettingsGeminiSection::showModel);
    showModel();
}

void SettingsGeminiSection::loadKey() {
    isKeyLoaded_ = false;
    key_->setModified(false);
    storedKey_.setFuture(settings_->storedAPIKey());
}

void SettingsGeminiSection::showStoredKey() {
    if (storedKey_.isCanceled()) {
        return;
    }
    isKeyLoaded_ = true;
    if (!key_->isModified()) { // by typing, while the secret store took its time
        key_->setText(storedKey_.result().value_or(QString()));
    }
}

void SettingsGeminiSection::layOut() {
    auto *const keyLabel = new QLabel(tr("API Key"), this);
    keyLabel->setBuddy(key_);
    auto *const save = new QPushButton(tr("Save Key"), this);
    save->setObjectName(u"saveKey"_s);
    save->setAccessibleName(save->text());
    setTabOrder(key_, save);
    setTabOrder(save, model_);
    connect(save, &QPushButton::clicked, this, &SettingsGeminiSection::saveKey);
    auto *const modelLabel = new QLabel(tr("Model"), this);
    modelLabel->setBuddy(model_);
    for (QLabel *const label : {keyLabel, modelLabel}) {
        label->setForegroundRole(QPalette::Text);
    }

    auto *const modelDefault =
        new CaptionLabel(tr("Default: gemini-2.5-flash"), Tint::secondary, std::nullopt, this);
    modelDefault->setWordWrap(true);

    auto *const saveRow = new QHBoxLayout;
    saveRow->setSpacing(10);
    saveRow->addWidget(save);
    saveRow->addWidget(keySaved_, 1);
    saveRow->addStretch();

    auto *const grid = new QGridLayout;
    grid->setContentsMargins(0, 0, endMargin, 0);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(gridSpacing);
    grid->setColumnStretch(1, 1);
    grid->addWidget(keyLabel, 0, 0);
    grid->addWidget(key_, 0, 1);
    grid->addLayout(saveRow, 1, 1);
    grid->addWidget(modelLabel, 2, 0);
    grid->addWidget(model_, 2, 1);
    grid->addWidget(modelDefault, 3, 1);
    rows()->addLayout(grid);
}

void SettingsGeminiSection::saveKey() {
    // A field that is only waiting for the stored key must not remove it.
    if (isKeyLoaded_ || key_->isModified()) {
        settings_->setAPIKey(key_->text());
    }
    keySaved_->show();
}

void SettingsGeminiSection::showModel() {
    // Setting an unchanged text would move the cursor away from where the user types.
    if (model_->text() != settings_->model()) {
        const QSignalBlocker blocker(model_);
        model_->setText(settings_->model());
    }
}

} // namespace fennick
