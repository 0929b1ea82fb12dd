#include "pipeline/receipt_pages.h"

#include "conversion/conversion_process.h"
#include "conversion/private_folder.h"
#include "extraction/gemini_error.h"
#include "pipeline/folder_threads.h"
#include "pipeline/tasks.h"
#include "pipeline/watched_folder.h"
#include "platform/regular_file.h"
#include "text/path_text.h"

#include <QCoreApplication>
#include <QCoroFuture>
#include <QDir>
#include <QPointer>
#include <QtConcurrent>

#include <chrono>

namespace fennick {

using namespace Qt::StringLiterals;

namespace {

// Longer than the repetition of a key that is held down.
constexpr std::chrono::milliseconds passing{120};

using SharedFile = std::expected<std::shared_ptr<QFile>, FileProblem>;

SharedFile openShared(const FileToRead &wanted) {
    OpenedFile file = openRegularFile(wanted);
    if (!file) {
        return std::unexpected(file.error());
    }
    return std::shared_ptr<QFile>(std::move(*file));
}

} // namespace

// A folder that the converter writes into. It goes when nobody wants the pages any more, and once more when
// the converter has ended.
class ReceiptPages::Folder {
public:
    explicit Folder(QString path)
        : path_(std::move(path)) {}
    Folder(const Folder &) = delete;
    Folder &operator=(const Folder &) = delete;
    ~Folder() { remove(); }

    void remove() const { QDir(path_).removeRecursively(); }

    const QString &path() const { return path_; }

private:
    QString path_;
};

ReceiptPages::ReceiptPages(const WatchedFolder *watchedFolder, const FolderThreads *folderThreads,
                           Tasks *tasks)
    : watchedFolder_(watchedFolder)
    , folderThreads_(folderThreads)
    , tasks_(tasks) {
    delay_.setSingleShot(true);
    delay_.setInterval(passing);
    connect(&delay_, &QTimer::timeout, this, &ReceiptPages::begin);
}

ReceiptPages::~ReceiptPages() {
    stop_.request_stop();
    removeFolder();
}

void ReceiptPages::show(const Receipt &receipt) {
    clear();
    path_ = receipt.filePath;
    state_ = State::underWay;
    delay_.start();
    Q_EMIT changed();
}

void ReceiptPages::clear() {
    delay_.stop();
    stop_.request_stop();
    stop_ = std::stop_source();
    state_ = State::none;
    files_.clear();
    failure_.clear();
    removeFolder();
    Q_EMIT changed();
}

void ReceiptPages::begin() {
    tasks_->start(make(path_, stop_.get_token()));
}

QCoro::Task<> ReceiptPages::make(QString path, std::stop_token stop) {
    const QPointer<ReceiptPages> self(this);
    FileToRead wanted(path);
    wanted.folder = watchedFolder_->path;
    // Not on this thread: the file may lie on an unreachable network.
    const SharedFile file = co_await QtConcurrent::run(folderThreads_->pool(), openShared, wanted);
    if (!self || stop.stop_requested()) {
        co_return;
    }
    if (!file) {
        fail(inUsersLanguage(file.error().description()));
        co_return;
    }
    const auto created = createPrivateFolder();
    if (!created) {
        fail(created.error().description());
        co_return;
    }
    const auto folder = std::make_shared<const Folder>(*created);
    folder_ = folder;
    const QString program = joinedPath(QCoreApplication::applicationDirPath(), u"convert_receipt"_s);
    const auto files =
        co_await ConversionProcess::convertInto(program, folder->path(), *file, path, u"page"_s, stop);
    if (!self || stop.stop_requested()) {
        co_return;
    }
    if (!files) {
        removeFolder();
        fail(files.error().errorDescription());
        co_return;
    }
    files_ = *files;
    state_ = State::ready;
    Q_EMIT changed();
}

void ReceiptPages::removeFolder() {
    if (folder_) {
        folder_->remove();
        folder_.reset();
    }
}

void ReceiptPages::fail(const QString &reason) {
    state_ = State::failed;
    failure_ = reason;
    Q_EMIT changed();
}

} // namespace fennick
