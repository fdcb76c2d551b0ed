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
/// MavApplication::appDataLocation(). A driver can be selected when a file there describes it.
///
/// Each application has a folder of its own: a description that was installed for one is unknown to
/// the others. Thread: the main thread.
class DIGITIZERGENERIC_EXPORT DescriptionFolder
{
public:
    /// A description file that was read or installed, or why it was not.
    struct Result
    {
        DescribedDriver driver; ///< only when there is no problem
        QString problem;        ///< a sentence with the path of the file; empty when all is well
    };

    /// What install() does with a file of the same name and another content.
    enum class ExistingFile {
        Kept,     ///< it stays, and nothing is installed
        Replaced, ///< the new file takes its place
    };

    /// Returns the absolute path of the folder, which need not exist.
    static QString path();

    /// Makes the folder ready; to be called at each start, before Digitizer::instance(). Creates
    /// it, copies shipped descriptions that are missing, and replaces those that still are, byte
    /// for byte, as an earlier release shipped them. A file that the user has changed or added is
    /// never touched. Returns an empty text, or what could not be done.
    ///
    /// Shipped are the files in "digitizer/generated" of the host's MavApplication::pluginsDir();
    /// when there are none, the descriptions inside this library. What was copied is recorded in
    /// "shipped-descriptions.ini" beside the folder.
    static QString prepare();

    /// Returns the installed drivers by name. Files that are not well-formed or have no name are
    /// left out; of several with one name only the first counts, as in Digitizer::selectDevice().
    /// Reads the files anew on every call.
    static QVector<DescribedDriver> drivers();

    /// Returns the driver that Digitizer::selectDevice(\a name, ...) selects; nothing when no
    /// installed description has exactly that name.
    static std::optional<DescribedDriver> find(const QString& name);

    /// Returns the driver that the description \a file has, installed or not. A problem: it cannot
    /// be read, is not well-formed, has no driver name, a broken report template or too many
    /// buttons.
    static Result read(const QString& file);

    /// Reads the description \a file as above and copies it into the folder, which is created when
    /// it is missing; the result names the copy. A problem, beside those of read(): the file is
    /// hidden, an installed file of another name describes the same driver, one of the same name
    /// has another content and is to be kept, or the folder cannot be written. An open device and
    /// the selected driver stay as they are.
    static Result install(const QString& file, ExistingFile existing = ExistingFile::Kept);
};

} // namespace MavSystem
