#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QString>

namespace vantrelle {

// Today's agent usage as the panel shows it.
struct UsageTodayFigures {
    Q_GADGET
    QML_VALUE_TYPE(usageToday)
    Q_PROPERTY(QString tokens MEMBER tokens)
    Q_PROPERTY(QString cost MEMBER cost)
    Q_PROPERTY(QString input MEMBER input)
    Q_PROPERTY(QString output MEMBER output)
    Q_PROPERTY(QString cacheRead MEMBER cacheRead)
    Q_PROPERTY(QString cacheWrite MEMBER cacheWrite)
    Q_PROPERTY(qint64 messages MEMBER messages)
    Q_PROPERTY(qint64 sessions MEMBER sessions)

public:
    QString tokens;
    QString cost;
    QString input;
    QString output;
    QString cacheRead;
    QString cacheWrite;
    qint64 messages = 0;
    qint64 sessions = 0;
};

// The current 5-hour window as the panel's gauge shows it; `open` is false while there is none and
// every other field is then empty.
struct UsageWindowFigures {
    Q_GADGET
    QML_VALUE_TYPE(usageWindow)
    Q_PROPERTY(bool open MEMBER open)
    Q_PROPERTY(QString tokens MEMBER tokens)
    Q_PROPERTY(QString cost MEMBER cost)
    Q_PROPERTY(double progress MEMBER progress)
    Q_PROPERTY(QString budget MEMBER budget)
    Q_PROPERTY(bool overBudget MEMBER overBudget)
    Q_PROPERTY(QString burn MEMBER burn)
    Q_PROPERTY(QString projected MEMBER projected)
    Q_PROPERTY(QString timeLeft MEMBER timeLeft)
    Q_PROPERTY(QString started MEMBER started)

public:
    bool open = false;
    QString tokens;
    QString cost;
    double progress = 0;
    QString budget;  // empty without a budget
    bool overBudget = false;
    QString burn;
    QString projected;
    QString timeLeft;
    QString started;
};

}  // namespace vantrelle
