// The add-on's hold on the host for the length of a scope: its host lock, and a pause in the host's
// drawing.
#pragma once

namespace vantix::vtxutiltools
{

// Takes something of the host for its lifetime and gives it back when it goes, however the scope is left.
// What it takes nests in the host, so guards may be taken while others are held; each gives back exactly
// what it took.
template <void (*Take)(), void (*GiveBack)()>
class HostGuard
{
public:
    HostGuard() { Take(); }
    ~HostGuard() { GiveBack(); }

    HostGuard(const HostGuard&) = delete;
    HostGuard& operator=(const HostGuard&) = delete;
};

void StartHostLock();
void FinishHostLock();
void SuspendDrawing();
void ResumeDrawing();

// Holds the add-on's host lock.
using HostLock = HostGuard<StartHostLock, FinishHostLock>;

// Keeps the host from drawing, so that a view changed in several steps is never drawn half-made.
using DrawingSuspension = HostGuard<SuspendDrawing, ResumeDrawing>;

} // namespace vantix::vtxutiltools
