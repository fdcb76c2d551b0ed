// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DescribedDriver.h"
#include "DigitizerGeneric/DigitizerGenericExport.h"

#include <QString>
#include <QVector>

#include <optional>

namespace MavSystem {

/// The folder with the installed descriptions: "generated" in the host's application data location,
/// MavApplication::appDataLocation(). A driver can be selected if a file in this folder describes
/// it.
///
/// Each application has a separate folder: a description that was installed for one is unknown to
/// the others. Thread: the main thread.
class DIGITIZERGENERIC_EXPORT DescriptionFolder
{
public:
    /// A description file that was read or installed, or why it was not.
    struct Result
    {
        DescribedDriver driver; ///< only when there is no problem
        QString problem; ///< a sentence with the path of the file; empty if there is no problem
        bool isReplaceable = false; ///< whether ExistingFile::Replaced avoids the problem
    };

    /// What install() does with an existing file of the same name and different content.
    enum class ExistingFile {
        Kept,     ///< it is kept, and nothing is installed
        Replaced, ///< it is replaced
    };

    /// Returns the absolute path of the folder, which need not exist.
    static QString path();

    /// Prepares the folder; to be called at each start, before Digitizer::instance(). Creates the
    /// folder if it is missing, copies shipped descriptions that are missing, and updates those
    /// that are, byte for byte, what an earlier release shipped. A file that the user has changed
    /// or added is never touched. Returns an empty text, or a sentence that says what could not be
    /// done.
    ///
    /// The shipped descriptions are the files in "digitizer/generated" of the host's
    /// MavApplication::pluginsDir(), or, if there are none, those inside this library. The file
    /// "shipped-descriptions.ini" next to the folder records what was copied.
    static QString prepare();

    /// Returns the installed drivers, sorted by name. Files that are not well-formed or have no
    /// driver name are left out. Of several files with the same driver name only the first counts,
    /// as in Digitizer::selectDevice(). A changed file counts at the next call.
    static QVector<DescribedDriver> drivers();

    /// Returns the driver that Digitizer::selectDevice(\a name, ...) selects, or nothing if no
    /// installed description has exactly that name.
    static std::optional<DescribedDriver> find(const QString& name);

    /// Returns the driver that the description \a file defines, installed or not. It is a problem
    /// if the file cannot be read or is not well-formed, or if it has no driver name, or has a
    /// broken report template or too many buttons.
    static Result read(const QString& file);

    /// Reads the description \a file as above and copies it to the folder, which is created if it
    /// is missing. The result names the copy. Besides the problems of read(), it is a problem if
    /// the file is hidden, if an installed file of another name describes the same driver, if a
    /// file of the same name has different content and is to be kept, or if the folder cannot be
    /// written. An open device and the selected driver do not change.
    static Result install(const QString& file, ExistingFile existing = ExistingFile::Kept);
};

} // namespace MavSystem
