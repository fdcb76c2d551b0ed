// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "MavCore/MavApplication.h"

#include <optional>

namespace ReferenceHost {

/// The program's host while pen files are imported: it asks the library's questions at the
/// terminal. Everything else goes to the previous host, which is restored at the end.
class ImportHost : public MavSystem::MavApplication
{
public:
    /// With \a answer, the index of a choice, nobody is asked.
    explicit ImportHost(std::optional<int> answer);
    ~ImportHost() override;

    QDir pluginsDir() const override;
    QDir appDataLocation() const override;
    void displayWarning(const QString& text, const QString& details,
                        QWidget* parent) const override;
    void displayError(const QString& text, const QString& details, QWidget* parent) const override;

    /// The first letters of a choice are enough, except for the second one, which deletes and must
    /// be typed in full. Without a terminal, and at the end of the input, the third choice is
    /// taken.
    int confirmContinue(const QString& text, const QString& title, const QString& first,
                        const QString& second, const QString& third,
                        QWidget* parent) const override;

    /// Returns the answer that was given, or nothing if the library has not asked.
    std::optional<int> answered() const { return m_answered; }

    enum Answer {
        Import = 0,
        Delete = 1,
        Cancel = 2,
    };

private:
    MavApplication* m_previous;
    std::optional<int> m_answer;
    mutable std::optional<int> m_answered;
};

} // namespace ReferenceHost
