// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "exchange/Backup.h"

namespace elmworth {

/// Takes a backup document piece by piece, so that nobody needs to hold all of it. The calls come
/// in this order: begin; for each client beginClient, its projects, endClient; for each project
/// beginProject, its entries, endProject; beginInvoices; the invoices; end. The lists that a client
/// and a project have of their own are not looked at.
class BackupReceiver {
 public:
    virtual ~BackupReceiver() = default;

    virtual void begin() = 0;
    virtual void beginClient(const ClientDTO& client) = 0;
    virtual void beginProject(const ProjectDTO& project) = 0;
    virtual void entry(const EntryDTO& entry) = 0;
    virtual void endProject(const ProjectDTO& project) = 0;
    virtual void endClient(const ClientDTO& client) = 0;
    virtual void beginInvoices(Instant exportedAt) = 0;
    virtual void invoice(const InvoiceDTO& invoice) = 0;
    virtual void end(const BusinessProfile& profile, std::int64_t version) = 0;
};

}  // namespace elmworth
