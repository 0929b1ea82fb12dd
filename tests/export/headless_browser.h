#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace fennick::test {

// Opens pages of the file system in Chromium, as a reader of them would, but without a window. Each page gets
// a browser of its own with an empty profile.
class HeadlessBrowser {
public:
    enum class ColourScheme { light, dark };

    struct Page {
        bool isLoaded = false;
        QByteArray dom;              // serialised after the page's scripts have run
        QStringList consoleMessages; // errors of the page and what its scripts write
    };

    static bool isInstalled();

    Page open(const QString &path, ColourScheme scheme = ColourScheme::light) const;

    // Null when the page was not loaded.
    QImage screenshot(const QString &path, ColourScheme scheme) const;

private:
    struct Output {
        bool isComplete = false;
        QByteArray standardOutput;
        QByteArray log;
    };

    Output run(const QString &path, ColourScheme scheme, const QStringList &arguments) const;

    QTemporaryDir folder_;
};

} // namespace fennick::test
