// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "MavCore/MavApplication.h"

#include <optional>

namespace ReferenceHost {

/// The program's host while pen files are imported: it asks at the terminal where the library asks
/// the user. All else it leaves to the host that was there before, which it brings back.
class ImportHost : public MavSystem::MavApplication
{
public:
    /// With \a answer, the index of a choice, the user is not asked.
    explicit ImportHost(std::optional<int> answer);
    ~ImportHost() override;

    QDir pluginsDir() const override;
    QDir appDataLocation() const override;
    void displayWarning(const QString& text, const QString& details,
                        QWidget* parent) const override;
    void displayError(const QString& text, const QString& details, QWidget* parent) const override;

    /// A choice is typed by its first letters; the second one, which deletes, in full. Without a
    /// terminal, and at the end of the input, the third one is taken.
    int confirmContinue(const QString& text, const QString& title, const QString& first,
                        const QString& second, const QString& third,
                        QWidget* parent) const override;

    /// Returns the answer that was given, or nothing when the library has not asked.
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
