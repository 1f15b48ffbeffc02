// SPDX-License-Identifier: GPL-3.0-or-later
#include "vel_toolkit/app_nap.h"

#import <Foundation/Foundation.h>

namespace vel {

app_nap_suppressor::app_nap_suppressor(const QString& reason)
{
    // User-initiated work: the system neither naps the process nor lowers
    // its timer precision until the activity ends.
    id<NSObject> token = [[NSProcessInfo processInfo]
        beginActivityWithOptions:NSActivityUserInitiatedAllowingIdleSystemSleep
                          reason:reason.toNSString()];
    // Kept as a plain pointer in the header: ARC hands its reference over here
    // and takes it back when the activity ends.
    activity = (__bridge_retained void*)token;
}

app_nap_suppressor::~app_nap_suppressor()
{
    if (!activity)
        return;
    id<NSObject> token = (__bridge_transfer id<NSObject>)activity;
    [[NSProcessInfo processInfo] endActivity:token];
}

} // namespace vel
