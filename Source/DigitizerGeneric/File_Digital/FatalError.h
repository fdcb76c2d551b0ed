// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/DigitizerGenericExport.h"

#include <QString>

#include <boost/exception/exception.hpp>

#include <stdexcept>

namespace MavSystem {

/// Raised on misuse inside the library; carries the place of its throw as boost::exception does.
class DIGITIZERGENERIC_EXPORT FatalError : public boost::exception, public std::runtime_error
{
public:
    /// what() returns \a message in UTF-8.
    explicit FatalError(const QString& message);
};

} // namespace MavSystem
