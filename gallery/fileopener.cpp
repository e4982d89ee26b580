// SPDX-License-Identifier: BSD-3-Clause
#include "fileopener.h"

#include <QFileInfo>
#include <QThread>

#include <algorithm>
#include <optional>

namespace ovl::gallery {
namespace {

constexpr int kWatchInterval = 40; // ms
constexpr double kReadShare = 0.5; // of the progress; filling is the rest

} // namespace

/** Shared with the thread, which may outlive the wish for it. */
struct FileOpener::Reading {
    Progress progress;
    std::optional<Outcome<SharedContents>> result;
};

FileOpener::FileOpener(MakeFillings maker, QObject* parent)
    : QObject(parent)
    , makeFillings(std::move(maker))
{
    watch.setInterval(kWatchInterval);
    pace.setInterval(0);
    connect(&watch, &QTimer::timeout, this,
        [this] { Q_EMIT progressed(kReadShare * reading->progress.share()); });
    connect(&pace, &QTimer::timeout, this, &FileOpener::fillSome);
}

FileOpener::~FileOpener()
{
    drop();
    for (QThread* thread : threads) {
        thread->wait();
        delete thread;
    }
}

void FileOpener::open(const QStringList& paths)
{
    waiting += paths;
    if (!isBusy())
        startNext();
}

void FileOpener::show(const SharedContents& made)
{
    drop();
    present = made->name;
    path.clear();
    Q_EMIT started(present);
    beginFilling(made);
}

void FileOpener::cancel()
{
    const bool busy = isBusy();
    drop();
    if (busy)
        Q_EMIT finished();
}

void FileOpener::drop()
{
    if (reading)
        reading->progress.cancel();
    reading.reset();
    watch.stop();
    pace.stop();
    fillings.clear();
    contents.reset();
    waiting.clear();
    present.clear();
}

void FileOpener::startNext()
{
    if (waiting.isEmpty()) {
        present.clear();
        Q_EMIT finished();
        return;
    }
    path = waiting.takeFirst();
    present = QFileInfo(path).fileName();
    if (present.isEmpty())
        present = path;
    reading = std::make_shared<Reading>();
    QThread* thread = QThread::create([mine = reading, from = path] {
        mine->result.emplace(readContents(from, &mine->progress));
    });
    threads.push_back(thread);
    connect(thread, &QThread::finished, this, [this, thread, mine = reading] {
        threads.erase(std::find(threads.begin(), threads.end(), thread));
        thread->deleteLater();
        if (mine == reading) // else it was cancelled
            takeReading();
    });
    Q_EMIT started(present);
    watch.start();
    thread->start();
}

void FileOpener::takeReading()
{
    watch.stop();
    const std::shared_ptr<Reading> done = std::exchange(reading, nullptr);
    if (*done->result)
        return beginFilling(done->result->value());
    Q_EMIT failed(path, done->result->problem());
    startNext();
}

void FileOpener::beginFilling(const SharedContents& read)
{
    contents = read;
    fillings = makeFillings(contents);
    filled = 0;
    pace.start();
}

void FileOpener::fillSome()
{
    if (filled < fillings.size()) {
        const double share = fillings[filled]->work();
        const double all
            = (static_cast<double>(filled) + share) / static_cast<double>(fillings.size());
        filled += share >= 1 ? 1 : 0;
        Q_EMIT progressed(kReadShare + (1 - kReadShare) * all);
        return;
    }
    pace.stop();
    for (const std::unique_ptr<Filling>& filling : fillings)
        filling->commit();
    fillings.clear();
    const SharedContents shown = std::exchange(contents, nullptr);
    Q_EMIT opened(path, shown);
    startNext();
}

} // namespace ovl::gallery
