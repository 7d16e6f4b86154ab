// A list control bound to a list model: what the control's owner sees of it.
#pragma once

#include "gui/ListSelectionModelInterface.h"

namespace vantix::vtxutiltools
{

class ListModelGenericInterface;

class ListViewInterface
{
public:
    // Any value other than SingleSelection gives multiple selection.
    enum SelectionModel_e : int
    {
        SingleSelection = 0,
        MultiSelection = 1
    };

    // Shows model and takes ownership of it.
    virtual void setModel(ListModelGenericInterface* model) = 0;
    // Shows model, which stays its caller's.
    virtual void setModel(ListModelGenericInterface& model) = 0;
    virtual ListModelGenericInterface* model() = 0;
    virtual ListSelectionModelInterface* selectionModel() = 0;
    // The host list control shown in; -2 while there is none.
    virtual int guiId() const = 0;
    virtual void setGuiID(int id) = 0;
    // Detaches from the model while the control is not shown; the control keeps what it shows.
    virtual void suspendUpdates() = 0;
    // Attaches again and rebuilds the control from the model's current contents.
    virtual void resumeUpdates() = 0;
    virtual ~ListViewInterface() = default;
};

} // namespace vantix::vtxutiltools
