#pragma once
// The result of one drawing's audit as a small line-based record, so that a worker process
// can hand it to the process that writes the reports. One item a line, fields separated by
// tabs; tabs, line feeds and backslashes in values are escaped.
//   deviation KEY LAYER PROPERTY FILE-VALUE DRAWING-VALUE FILE-RGB DRAWING-RGB
//   unnamed   LAYER HINT-KEY HINT-NAME
//   missing   KEY LAYER
//   change    LAYER WHAT FROM TO FAILURE
#include <optional>
#include <string>

#include "standard/LayerAudit.h"

namespace ardo {

std::string writeAuditRecord(const DrawingAudit& audit);
// The audit, or nothing when a line is no item of the record.
std::optional<DrawingAudit> readAuditRecord(const std::string& record);

}  // namespace ardo
