#include "QtMainScheduler.h"

#include <QMetaObject>
#include <QPointer>
#include <QTimer>
#include <cmath>

namespace vantrelle {

QtMainScheduler::QtMainScheduler() = default;

void QtMainScheduler::post(std::function<void()> work) {
    QMetaObject::invokeMethod(&m_context, std::move(work), Qt::QueuedConnection);
}

WorkItem QtMainScheduler::schedule(double delay, std::function<void()> work) {
    return startTimer(delay, false, std::move(work));
}

RepeatingTimer QtMainScheduler::repeat(double interval, std::function<void()> tick) {
    return startTimer(interval, true, std::move(tick));
}

Cancellable QtMainScheduler::startTimer(double seconds, bool repeating, std::function<void()> work) {
    auto token = std::make_shared<CancelToken>();
    auto* timer = new QTimer(&m_context);
    timer->setSingleShot(!repeating);
    // Short delays (hover, close) must be exact; long polls may be coalesced to save wake-ups.
    timer->setTimerType(seconds < 2.0 ? Qt::PreciseTimer : Qt::CoarseTimer);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, repeating, token, work = std::move(work)] {
        if (!repeating) timer->deleteLater();
        // A one-shot timer is spent once it fires, so its handle stops reporting it as pending.
        if (repeating ? token->cancelled.load() : token->cancelled.exchange(true)) return;
        work();
    });
    token->onCancel = [guarded = QPointer<QTimer>(timer)] {
        if (guarded) {
            guarded->stop();
            guarded->deleteLater();
        }
    };
    timer->start(static_cast<int>(std::lround(std::max(0.0, seconds) * 1000.0)));
    return Cancellable(token);
}

}  // namespace vantrelle
