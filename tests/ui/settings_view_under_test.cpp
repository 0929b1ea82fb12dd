#include "settings_view_under_test.h"

#include "support/conditions.h"
#include "ui/widgets/elided_label.h"

#include <QDir>
#include <QFile>

namespace fennick::test {

using namespace Qt::StringLiterals;

void SettingsViewUnderTest::init() {
    const QStringList files = {home_.preferencesFile(), home_.permissionsFile(), home_.receiptsFile(),
                               home_.ignoredFile(), autostartFile()};
    for (const QString &file : files) {
        QFile::remove(file);
    }
    PrivateSession::clearKey();
    QDir().mkpath(home_.path(u"Pictures"_s));
    create();
}

void SettingsViewUnderTest::create() {
    view_.reset();
    appState_.reset();
    settings_ = std::make_unique<SettingsStore>();
    loginItem_ = std::make_unique<LoginItem>(settings_.get());
    store_ = std::make_unique<ReceiptStore>();
    appState_ = std::make_unique<AppState>(store_.get(), settings_.get());
    constexpr bool canHideFromTaskBar = true;
    view_ = std::make_unique<SettingsView>(appState_.get(), settings_.get(), canHideFromTaskBar);
}

void SettingsViewUnderTest::show() {
    view_->show();
    view_->activateWindow();
    QVERIFY(waitUntil([this] { return view_->isActiveWindow(); }));
}

ElidedLabel *SettingsViewUnderTest::path(const char *name) const {
    return control<ElidedLabel>(name);
}

void SettingsViewUnderTest::click(QWidget *widget) const {
    scrollArea()->ensureWidgetVisible(widget);
    QTest::mouseClick(widget, Qt::LeftButton);
}

void SettingsViewUnderTest::type(QLineEdit *lineEdit, const QString &text) {
    lineEdit->setFocus();
    lineEdit->selectAll();
    if (text.isEmpty()) {
        QTest::keyClick(lineEdit, Qt::Key_Delete);
    }
    QTest::keyClicks(lineEdit, text);
}

bool SettingsViewUnderTest::isInSight(const QWidget *widget) const {
    const QWidget *const viewport = scrollArea()->viewport();
    return viewport->rect().contains(QRect(widget->mapTo(viewport, QPoint()), widget->size()));
}

QByteArray SettingsViewUnderTest::storedPreference(const QByteArray &key) const {
    const auto lines = readFile(home_.preferencesFile()).split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(key + '=')) {
            return line.mid(key.size() + 1);
        }
    }
    return {};
}

QString SettingsViewUnderTest::makeFolder(const QString &name) const {
    QDir().mkpath(home_.path(name));
    return home_.path(name);
}

QString SettingsViewUnderTest::autostartFile() const {
    return home_.path(u"config/autostart/org.fennick.Fennick.desktop"_s);
}

} // namespace fennick::test
