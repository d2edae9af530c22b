#pragma once

#include <QImage>
#include <QList>
#include <QObject>
#include <QRunnable>
#include <QThreadPool>
#include <mutex>
#include <utility>

#include "platform/picture.h"
#include "preview/decodedpreviews.h"

// Decodes previews on worker threads, so that no decode holds the window. The requests given
// replace those given before that have not started yet: when the selection moves on faster than
// pictures decode, no queue grows, and a decode that has started runs to its end.
//
// Everything that passes between the threads (the requests in, the decoded pixels out) goes
// through the one std::mutex of this object, so that ThreadSanitizer sees every handoff.
class PreviewDecoder : public QObject {
    Q_OBJECT
public:
    struct Request {
        PicturePtr picture;
        // The size and part to decode at.
        DecodedPreviews::Key key;
        // Decoded ahead of a selection, rather than for the image on show.
        bool readAhead = false;
    };

    PreviewDecoder();
    // Waits for the decodes that have started; the others are not started.
    ~PreviewDecoder() override;

    // Decodes `requests` in their order, in place of those not started yet. A request whose key
    // is being decoded already is not taken twice: that result is on its way.
    void decode(QList<Request> requests);
    // Whether no request waits, runs or has a result still to be delivered.
    bool idle() const;

signals:
    // On this object's thread; a null image when the file could not be decoded.
    void decoded(const PreviewDecoder::Request& request, const QImage& image);

private:
    // Started once for each thread that has work, it takes requests until none are left.
    class Worker : public QRunnable {
    public:
        explicit Worker(PreviewDecoder& decoder) : decoder_(decoder) { setAutoDelete(false); }
        void run() override { decoder_.work(); }

    private:
        PreviewDecoder& decoder_;
    };

    void work();
    void deliver();

    Worker worker_{*this};
    mutable std::mutex mutex_;
    QList<Request> waiting_;
    QList<DecodedPreviews::Key> running_;
    QList<std::pair<Request, QImage>> done_;
    int workers_ = 0;
    bool deliveryPosted_ = false;
    // Last, so that it is the first to go and no worker outlives what it uses.
    QThreadPool pool_;
};
