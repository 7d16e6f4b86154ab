// A host argument list (VtxUtilArgListAlloc) that releases itself:
//
//     ArgList arguments;
//     arguments.appendFunction("CallbackFunction", reinterpret_cast<const void*>(&StateChangeCallback));
//     arguments.appendInt("StateChangeMode", StateChangeMode_Immediate);
//     VtxUtilStateChangeAddCallbackX(arguments.getRef());
#pragma once

#include <VtxUtil.h>

namespace vantix::toolbox
{

class VTX_SDK_API ArgList
{
public:
    ArgList();
    ~ArgList();
    ArgList(const ArgList&) = delete;
    ArgList& operator=(const ArgList&) = delete;

    // False, as VtxUtilArgListAppendInt and VtxUtilArgListAppendFunction answer, for a null or empty name
    // or a name the list has already (names match in any case).
    bool appendInt(const char* name, LgIndex_t value);
    bool appendFunction(const char* name, const void* function);

    // The host's handle, for the SDK functions that take a list; it lives as long as this object.
    ArgList_pa getRef() const { return m_list; }

private:
    ArgList_pa m_list; // owned
};

} // namespace vantix::toolbox
