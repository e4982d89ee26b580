// SPDX-License-Identifier: BSD-3-Clause
#ifndef OVL_GALLERY_FILEOPENER_H
#define OVL_GALLERY_FILEOPENER_H

#include "filecontents.h"
#include "filling.h"

#include <QObject>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <vector>

class QThread;

namespace ovl::gallery {

/**
 * Opens one file after the other off the event loop's back: a thread reads, then the pages are
 * filled piece by piece. All pages for a file show it in the same moment, at the very end; until
 * then, and when it fails or is cancelled, they show what they showed.
 */
class FileOpener : public QObject {
    Q_OBJECT

public:
    using MakeFillings
        = std::function<std::vector<std::unique_ptr<Filling>>(const SharedContents&)>;

    /** `makeFillings` gives one for each page that shows the contents, on the GUI thread. */
    explicit FileOpener(MakeFillings makeFillings, QObject* parent = nullptr);
    /** Waits for the threads, which are told to stop. */
    ~FileOpener() override;

    /** Opens these files behind those that wait. */
    void open(const QStringList& paths);
    /** Shows what needs not be read; what is on its way is cancelled. */
    void show(const SharedContents& contents);
    /** Leaves the present file, and those that wait. */
    void cancel();
    bool isBusy() const { return !present.isEmpty(); }

Q_SIGNALS:
    void started(const QString& name);
    /** From 0 to 1. */
    void progressed(double share);
    /** The pages show it now. `path` is empty for what was not read from a file. */
    void opened(const QString& path, const ovl::gallery::SharedContents& contents);
    void failed(const QString& path, const QString& problem);
    /** Nothing is on its way any more. */
    void finished();

private:
    struct Reading;

    void startNext();
    void takeReading();
    void beginFilling(const SharedContents& contents);
    void fillSome();
    void drop();

    MakeFillings makeFillings;
    QStringList waiting;
    QString present; // name of what is on its way
    QString path; // of the same
    std::shared_ptr<Reading> reading; // null when it is done, or not wanted any more
    std::vector<QThread*> threads;
    SharedContents contents;
    std::vector<std::unique_ptr<Filling>> fillings;
    std::size_t filled = 0; // of them
    QTimer watch; // of the reading
    QTimer pace; // of the filling
};

} // namespace ovl::gallery

#endif
