// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLoggingCategory>
#include <QStringList>

/// Takes over the messages of the process while it lives, those of the driver's own categories
/// included if asked for. One at a time.
class RecordedMessages
{
public:
    explicit RecordedMessages(bool diagnostics = false)
    {
        texts().clear();
        QLoggingCategory::setFilterRules(diagnostics ? QStringLiteral("mavsystem.*=true")
                                                     : QString());
        m_previous =
            qInstallMessageHandler([](QtMsgType /*type*/, const QMessageLogContext& /*context*/,
                                      const QString& text) { texts() << text; });
    }

    ~RecordedMessages()
    {
        qInstallMessageHandler(m_previous);
        QLoggingCategory::setFilterRules(QString());
    }

    RecordedMessages(const RecordedMessages&) = delete;
    RecordedMessages& operator=(const RecordedMessages&) = delete;

    static QStringList& texts()
    {
        static QStringList recorded;
        return recorded;
    }

    static bool hold(const char* part) { return !texts().filter(QLatin1String(part)).isEmpty(); }

private:
    QtMessageHandler m_previous;
};
