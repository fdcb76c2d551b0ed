// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DescribedDriver.h"
#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "ReferenceHost/Serial/RecordedSession.h"
#include "ReferenceHost/Serial/SerialLine.h"

#include <QObject>
#include <QTimer>

#include <tl/expected.hpp>

#include <memory>

class QSocketNotifier;

namespace ReferenceHost {

/// Records what passes between a tablet and the driver library: it opens the tablet's port, offers
/// the library a pseudo-terminal instead, and passes everything on in both directions. If the
/// tablet's port is lost, the pseudo-terminal stays and the port is opened again when it is back.
class LineTap : public QObject
{
    Q_OBJECT

public:
    /// Opens \a device with the settings of \a driver and records to the new file \a path. The
    /// error says which of them cannot be opened and why.
    static tl::expected<std::unique_ptr<LineTap>, QString>
    start(const MavSystem::DescribedDriver& driver, const QString& device, const QString& path);
    ~LineTap() override;

    /// Returns the path of the port for the driver library.
    QString port() const { return m_terminal.path(); }

    /// Returns why the recording is incomplete, or an empty text.
    QString problem() const { return m_writer.errorString(); }

Q_SIGNALS:
    /// The tablet's port is lost. Everything that arrived before is on its way to the driver.
    void lost();
    void returned();

private:
    LineTap(const MavSystem::DescribedDriver& driver, const QString& path);

    void connectEnds();
    void tryAgain();
    void record(const QByteArray& bytes);
    void passToDriver();
    void passToTablet();

    PseudoTerminal m_terminal;
    SerialLine m_line;
    QSocketNotifier* m_writable; // a child object; enabled while bytes wait for the driver
    QByteArray m_toDriver;
    SessionWriter m_writer;
    QTimer m_retry; // runs while the port is gone
};

} // namespace ReferenceHost
