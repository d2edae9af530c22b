#include "preview/previewdecoder.h"

PreviewDecoder::PreviewDecoder() {
    // The selection's decode and one read ahead at a time: reading ahead never takes every core
    // from the window and the other programs.
    pool_.setMaxThreadCount(2);
}

PreviewDecoder::~PreviewDecoder() {
    {
        const std::lock_guard lock(mutex_);
        waiting_.clear();
    }
    pool_.waitForDone();
}

void PreviewDecoder::decode(QList<Request> requests) {
    const std::lock_guard lock(mutex_);
    requests.removeIf([this](const Request& request) { return running_.contains(request.key); });
    waiting_ = std::move(requests);
    while (workers_ < waiting_.size() && workers_ < pool_.maxThreadCount()) {
        ++workers_;
        pool_.start(&worker_);
    }
}

bool PreviewDecoder::idle() const {
    const std::lock_guard lock(mutex_);
    return waiting_.isEmpty() && running_.isEmpty() && !deliveryPosted_;
}

void PreviewDecoder::work() {
    std::unique_lock lock(mutex_);
    while (!waiting_.isEmpty()) {
        Request request = waiting_.takeFirst();
        running_.append(request.key);
        lock.unlock();
        QImage image = request.picture->decode(request.key.size, request.key.part);
        lock.lock();
        running_.removeOne(request.key);
        done_.append({std::move(request), std::move(image)});
        if (!deliveryPosted_) {
            deliveryPosted_ = true;
            // Posted under the lock, so that the event's memory, too, passes between the threads
            // in an order that ThreadSanitizer sees.
            QMetaObject::invokeMethod(this, &PreviewDecoder::deliver, Qt::QueuedConnection);
        }
    }
    --workers_;
}

void PreviewDecoder::deliver() {
    QList<std::pair<Request, QImage>> done;
    {
        const std::lock_guard lock(mutex_);
        done.swap(done_);
        deliveryPosted_ = false;
    }
    for (const auto& [request, image] : done) emit decoded(request, image);
}
