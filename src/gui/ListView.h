// Shows a list model in a host list control and keeps the two in step: every change the model reports is
// mirrored into the control, line by line where that is possible and by a full rebuild where it is not,
// with the user's selection kept across the change. A model without items shows its empty-model message as
// the control's only line, greyed out.
//
// The view observes its model from the moment it is set until updates are suspended or the view goes. With
// no control (-2), no model or updates suspended, it leaves the control alone.
#pragma once

#include "gui/ListViewInterface.h"
#include "model/ListModelGenericInterface.h"

#include <memory>
#include <vector>

namespace vantix::vtxutiltools
{

class ListView : public virtual ListModelObserverInterface, public virtual ListViewInterface
{
public:
    ListView(int guiId, SelectionModel_e kind);
    // Bound to no control until setGuiID.
    explicit ListView(SelectionModel_e kind);
    // Detaches from the model; deletes it only if the view owns it.
    ~ListView() override;

    ListView(const ListView&) = delete;
    ListView& operator=(const ListView&) = delete;

    // Replaces the selection model with a new one of the kind asked for.
    void init(SelectionModel_e kind);

    // Setting the model shown already changes nothing, ownership included. A model the view owned is deleted
    // when another one replaces it.
    void setModel(ListModelGenericInterface* model) override;
    void setModel(ListModelGenericInterface& model) override;
    // Attaches model anew even if it is the one shown, and owns it exactly when the view owned the one
    // before.
    void resetModel(ListModelGenericInterface* model);

    ListModelGenericInterface* model() override { return m_model; }
    ListSelectionModelInterface* selectionModel() override { return m_selectionModel.get(); }
    int guiId() const override { return m_guiId; }
    // Rebuilds the list into the new control; the identifier shown already changes nothing.
    void setGuiID(int id) override;

    // While suspended the view does not observe its model, also a model set meanwhile; resuming attaches it.
    void suspendUpdates() override;
    void resumeUpdates() override;

    void modelChanged(const ListModelGenericInterface::ChangeInfo_s& change) override;

private:
    void replaceModel(ListModelGenericInterface* model, std::unique_ptr<ListModelGenericInterface> owned);
    bool hasControl() const;

    void rebuildList();
    void displayEmptyModelMessage();
    void addItems(const std::vector<unsigned long>& indices);
    void deleteItems(const std::vector<unsigned long>& indices);
    void updateItems(const std::vector<unsigned long>& indices);
    void appendLine(unsigned long index);

    int m_guiId;
    // Shown, and owned exactly when m_ownedModel holds it.
    ListModelGenericInterface* m_model = nullptr;
    std::unique_ptr<ListModelGenericInterface> m_ownedModel;
    // Whether the view takes ownership of a model given to resetModel.
    bool m_ownsModel = false;
    bool m_updatesSuspended = false;
    std::unique_ptr<ListSelectionModelInterface> m_selectionModel;
};

} // namespace vantix::vtxutiltools
