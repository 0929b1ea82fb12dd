#include "platform/unreadable_names.h"
#include "support/test_program.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <filesystem>
#include <fstream>

using namespace fennick;
using namespace Qt::StringLiterals;

class UnreadableNamesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void onlyPathsThatAreNoTextAreTold() {
        make("caf\xE9.pdf");
        make("coffee.pdf");
        make("caf\u00E9.pdf");
        make("fol\xE9"
             "der/receipt.pdf");
        make("folder/caf\xE9.pdf");
        QStringList names = filesWithUnreadableNames(folder_.path());
        names.sort();
        QCOMPARE(names, (QStringList{path(u"caf\uFFFD.pdf"_s), path(u"folder/caf\uFFFD.pdf"_s),
                                     path(u"fol\uFFFDder/receipt.pdf"_s)}));
        for (const QString &name : names) {
            QVERIFY(mayBeUnreadable(name));
        }
    }

    void hiddenFilesAndLinksAreLeftOut() {
        make(".caf\xE9.pdf");
        make(".hidden/caf\xE9.pdf");
        make("kept.pdf");
        std::filesystem::create_symlink("kept.pdf", folder_.path().toStdString() + "/li\xE9n.pdf");
        QCOMPARE(filesWithUnreadableNames(folder_.path()), QStringList());
    }

    void namesThatLookAlikeAreToldOnce() {
        make("caf\xE8.pdf");
        make("caf\xE9.pdf");
        QCOMPARE(filesWithUnreadableNames(folder_.path()), QStringList(path(u"caf\uFFFD.pdf"_s)));
    }

    void missingFolderHasNone() { QCOMPARE(filesWithUnreadableNames(path(u"none"_s)), QStringList()); }

    void cleanup() {
        std::filesystem::remove_all(folder_.path().toStdString());
        std::filesystem::create_directory(folder_.path().toStdString());
    }

private:
    QString path(const QString &name) const { return folder_.path() + u'/' + name; }

    void make(const std::string &name) const {
        const std::filesystem::path file = folder_.path().toStdString() + "/" + name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file) << "a receipt";
    }

    QTemporaryDir folder_;
};

int unreadable_names_test(int argc, char **argv) {
    return fennick::test::runTest<QCoreApplication, UnreadableNamesTest>(argc, argv);
}
#include "unreadable_names_test.moc"
