// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

/// Notices that the tablet sends and the library reads nothing.
///
/// The library takes a report when exactly one is waiting; after a stray byte, or when a pause of
/// the host let two reports come together, the line seems dead. What arrives shows only in its
/// logging category "mavsystem.serial", which this object listens to while it lives; the messages
/// stay invisible unless the user's logging rules ask for them. One at a time.
class UnreadInput
{
public:
    UnreadInput();
    ~UnreadInput();

    /// To be called for each report that was delivered.
    void reportDelivered();

    /// Returns whether bytes arrived over a second ago and no report has come of them.
    bool isStuck() const;
};
