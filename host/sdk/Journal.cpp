// The journal of the active frame's data set.
#include "core/Application.h"
#include "core/CallContext.h"
#include "events/ProtocolErrors.h"
#include "scene/DataSet.h"

#include <vantix/host/Host.h>

#include <exception>
#include <utility>

using vantix::host::detail::Application;
using vantix::host::detail::Call;
using vantix::host::detail::DataSet;
using vantix::host::detail::Enter;
using vantix::host::detail::ReportProtocolError;

namespace
{

DataSet* JournalDataSet(Application& app)
{
    auto* frame = app.page().activeFrame();
    return frame && frame->dataSet && frame->dataSet->journalValid ? frame->dataSet.get() : nullptr;
}

} // namespace

extern "C"
{

    Boolean VtxUtilDataSetJournalIsValid(void)
    {
        Application& app = Enter(Call::DataSetJournalIsValid);
        return JournalDataSet(app) ? TRUE : FALSE;
    }

    Boolean VtxUtilDataSetAddJournalCommand(const char* addOnIDString, const char* instructions,
                                            const char* rawData)
    {
        Application& app = Enter(Call::DataSetAddJournalCommand);
        if (!addOnIDString || !*addOnIDString || !instructions)
        {
            // Without the id no add-on could ever be asked to redo the command.
            ReportProtocolError("VtxUtilDataSetAddJournalCommand was given no add-on id or no instructions");
            return FALSE;
        }
        DataSet* dataSet = JournalDataSet(app);
        if (!dataSet)
            return FALSE; // an add-on may write without asking first; the journal just does not take it
        vantix::host::JournalCommand command;
        command.addOnID = addOnIDString;
        command.instructions = instructions;
        if (rawData)
            command.rawData = rawData;
        try
        {
            dataSet->journal.push_back(std::move(command));
        }
        catch (const std::exception&)
        {
            return FALSE; // out of memory: not kept
        }
        return TRUE;
    }

} // extern "C"
