// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/SerialSettings.h"

namespace MavSystem {

std::map<QString, BaudRateType>& BaudrateMap()
{
    static std::map<QString, BaudRateType> table{
        {QStringLiteral("150"), BAUD150},   {QStringLiteral("300"), BAUD300},
        {QStringLiteral("600"), BAUD600},   {QStringLiteral("1200"), BAUD1200},
        {QStringLiteral("2400"), BAUD2400}, {QStringLiteral("4800"), BAUD4800},
        {QStringLiteral("9600"), BAUD9600}, {QStringLiteral("19200"), BAUD19200},
    };
    return table;
}

std::map<QString, DataBitsType>& DatabitMap()
{
    static std::map<QString, DataBitsType> table{
        {QStringLiteral("7"), DATA_7},
        {QStringLiteral("8"), DATA_8},
    };
    return table;
}

std::map<QString, ParityType>& ParityMap()
{
    static std::map<QString, ParityType> table{
        {QStringLiteral("None"), PAR_NONE},
        {QStringLiteral("Odd"), PAR_ODD},
        {QStringLiteral("Even"), PAR_EVEN},
    };
    return table;
}

std::map<QString, StopBitsType>& StopbitMap()
{
    static std::map<QString, StopBitsType> table{
        {QStringLiteral("1"), STOP_1},
        {QStringLiteral("1.5"), STOP_1_5},
        {QStringLiteral("2"), STOP_2},
    };
    return table;
}

std::map<QString, FlowType>& FlowCtrlMap()
{
    static std::map<QString, FlowType> table{
        {QStringLiteral("hardware"), FLOW_HARDWARE},
        {QStringLiteral("software"), FLOW_XONXOFF},
        {QStringLiteral("none"), FLOW_OFF},
    };
    return table;
}

} // namespace MavSystem
