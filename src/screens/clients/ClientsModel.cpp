// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/clients/ClientsModel.h"

namespace elmworth {

ClientsModel::ClientsModel(const AppServices& services, Confirmation& confirmation)
    : services_(services), confirmation_(confirmation) {}

}  // namespace elmworth
