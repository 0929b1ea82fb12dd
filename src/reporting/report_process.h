#pragma once

#include <QByteArray>
#include <QObject>
#include <QProcess>
#include <QSaveFile>
#include <QString>

#include <memory>

namespace fennick {

struct ReportDescription;

// Has one report made by a process of its own, with limits on memory and time: whatever a hostile receipt
// does to the libraries that open it, this program keeps running, and a folder that does not answer holds up
// that process alone. The report appears at its path complete or not at all. Owned by whoever wants the
// report; its destruction ends the process. Main thread.
class ReportProcess : public QObject {
    Q_OBJECT

public:
    // `program` is the path of the program `make_report`.
    explicit ReportProcess(QString program, QObject *parent = nullptr);
    ~ReportProcess() override;

    // Makes the report and emits one of the last two signals. Call it once.
    void start(const ReportDescription &description, const QString &path);

    // Ends the process; nothing is emitted any more and no file is written.
    void cancel();

Q_SIGNALS:
    // So many receipts are in the report.
    void progressed(int receipts);
    void saved();
    void failed(const QString &reason);

private:
    void readProgress();
    void finish();
    void fail(const QString &reason);

    // The receipt that ended the process, or a general reason.
    QString reasonOfTheEnd() const;

    QString program_;
    QProcess process_;
    std::unique_ptr<QSaveFile> file_;
    QStringList lines_; // of the receipts
    int receipt_ = 0;   // the one under way, from 1
    bool isComplete_ = false;
    bool isUnwritten_ = false;
};

} // namespace fennick
