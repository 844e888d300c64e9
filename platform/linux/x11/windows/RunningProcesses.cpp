// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/x11/windows/RunningProcesses.h"

#include "platform/linux/running/ProcessFacts.h"

#include <QList>

#include <xcb/res.h>

namespace ardeno {

RunningProcesses RunningProcesses::of(const X11Connection &connection)
{
    RunningProcesses running;
    for (const qint32 processID : connectedProcesses(connection))
        running.m_startTimes.insert(processID, ProcessFacts(processID).startTicks());
    return running;
}

bool RunningProcesses::contains(qint32 processID) const
{
    const quint64 startTime = m_startTimes.value(processID);
    return startTime != 0 && startTime == ProcessFacts(processID).startTicks();
}

QHash<quint32, qint32> connectedProcesses(const X11Connection &connection)
{
    QHash<quint32, qint32> processes;
    if (!connection.hasClientIDs())
        return processes;
    xcb_connection_t *xcb = connection.xcb();
    const xcb_res_client_id_spec_t all = {XCB_NONE, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    const X11Reply<xcb_res_query_client_ids_reply_t> reply(
        xcb_res_query_client_ids_reply(xcb, xcb_res_query_client_ids(xcb, 1, &all), nullptr));
    if (!reply)
        return processes;
    for (auto value = xcb_res_query_client_ids_ids_iterator(reply.get()); value.rem > 0;
         xcb_res_client_id_value_next(&value)) {
        if (xcb_res_client_id_value_value_length(value.data) > 0)
            processes.insert(value.data->spec.client & ~xcb_get_setup(xcb)->resource_id_mask,
                             qint32(*xcb_res_client_id_value_value(value.data)));
    }
    return processes;
}

} // namespace ardeno
