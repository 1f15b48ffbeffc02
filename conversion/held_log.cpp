// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/held_log.h"

namespace {

thread_local held_lines* holding = nullptr;
QtMessageHandler handler_before = nullptr;

void holding_handler(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (holding != nullptr)
        holding->push_back({type, QByteArray(context.category ? context.category : "default"), text});
    else if (handler_before != nullptr)
        handler_before(type, context, text);
}

} // namespace

log_holding::log_holding()
{
    handler_before = qInstallMessageHandler(holding_handler);
}

log_holding::~log_holding()
{
    qInstallMessageHandler(handler_before);
    handler_before = nullptr;
}

void log_holding::hold_into(held_lines* lines)
{
    holding = lines;
}

void log_holding::release(const held_lines& lines)
{
    for (const held_line& line : lines) {
        const QMessageLogContext context(nullptr, 0, nullptr, line.category.constData());
        if (handler_before != nullptr)
            handler_before(line.type, context, line.text);
    }
}
