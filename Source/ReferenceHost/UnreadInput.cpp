// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/UnreadInput.h"

#include <QElapsedTimer>
#include <QLoggingCategory>

namespace {

constexpr int patienceMilliseconds = 1000;

QElapsedTimer s_sinceArrival; // valid while something is unread
QLoggingCategory::CategoryFilter s_userFilter = nullptr;
QtMessageHandler s_userHandler = nullptr;
bool s_wantedByUser = false;

bool isSerial(const char* category)
{
    return qstrcmp(category, "mavsystem.serial") == 0;
}

void enableSerial(QLoggingCategory* category)
{
    s_userFilter(category);
    if (isSerial(category->categoryName())) {
        s_wantedByUser = category->isDebugEnabled();
        category->setEnabled(QtDebugMsg, true);
    }
}

void listen(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    const bool arrival = type == QtDebugMsg && isSerial(context.category);
    if (arrival)
        s_sinceArrival.start();
    if (!arrival || s_wantedByUser)
        s_userHandler(type, context, message);
}

} // namespace

UnreadInput::UnreadInput()
{
    s_sinceArrival.invalidate();
    s_userHandler = qInstallMessageHandler(listen);
    // Twice, since installing calls the filter at once for every category there is.
    s_userFilter = QLoggingCategory::installFilter(nullptr);
    QLoggingCategory::installFilter(enableSerial);
}

UnreadInput::~UnreadInput()
{
    QLoggingCategory::installFilter(s_userFilter);
    qInstallMessageHandler(s_userHandler);
}

void UnreadInput::reportDelivered()
{
    s_sinceArrival.invalidate();
}

bool UnreadInput::isStuck() const
{
    return s_sinceArrival.isValid() && s_sinceArrival.elapsed() > patienceMilliseconds;
}
