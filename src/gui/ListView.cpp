#include "gui/ListView.h"

#include "gui/ListSelectionModel.h"
#include "platform/HostGuards.h"

#include <VtxGUI.h>

#include <algorithm>
#include <utility>

namespace vantix::vtxutiltools
{

namespace
{

// The control's position of a model index.
int Position(unsigned long index)
{
    return static_cast<int>(index + 1);
}

} // namespace

ListView::ListView(int guiId, SelectionModel_e kind) : m_guiId(guiId)
{
    init(kind);
}

ListView::ListView(SelectionModel_e kind) : ListView(GuiId_None, kind) {}

ListView::~ListView()
{
    // This class's own: a derived view is gone by now.
    ListView::suspendUpdates();
    if (m_model != nullptr)
        m_model->removeObserver(*this);
    m_selectionModel.reset();
    m_ownedModel.reset();
}

void ListView::init(SelectionModel_e kind)
{
    if (kind != SingleSelection)
        m_selectionModel = std::make_unique<ListMultiSelectionModel>(*this);
    else
        m_selectionModel = std::make_unique<ListSingleSelectionModel>(*this);
}

void ListView::setModel(ListModelGenericInterface* model)
{
    if (model == m_model)
        return;
    // Owned from here on, so that a model or host failure below does not leak it.
    m_ownsModel = true;
    replaceModel(model, std::unique_ptr<ListModelGenericInterface>(model));
}

void ListView::setModel(ListModelGenericInterface& model)
{
    if (&model == m_model)
        return;
    m_ownsModel = false;
    replaceModel(&model, nullptr);
}

void ListView::resetModel(ListModelGenericInterface* model)
{
    std::unique_ptr<ListModelGenericInterface> owned;
    if (m_ownsModel)
        owned =
            model == m_model ? std::move(m_ownedModel) : std::unique_ptr<ListModelGenericInterface>(model);
    replaceModel(model, std::move(owned));
}

void ListView::replaceModel(ListModelGenericInterface* model,
                            std::unique_ptr<ListModelGenericInterface> owned)
{
    // The view holds the new model before the old one hears anything, so that whatever fails below, it
    // never keeps a model it has deleted.
    ListModelGenericInterface* const previous = m_model;
    std::unique_ptr<ListModelGenericInterface> previousOwned = std::exchange(m_ownedModel, std::move(owned));
    m_model = model;
    if (previous != nullptr)
        previous->removeObserver(*this);
    previousOwned.reset();
    if (m_model != nullptr && !m_updatesSuspended)
        m_model->addObserver(*this);
    rebuildList();
}

void ListView::setGuiID(int id)
{
    if (id == m_guiId)
        return;
    m_guiId = id;
    rebuildList();
}

void ListView::suspendUpdates()
{
    if (m_model != nullptr)
        m_model->removeObserver(*this);
    m_updatesSuspended = true;
}

void ListView::resumeUpdates()
{
    if (!m_updatesSuspended)
        return;
    if (m_model != nullptr)
        m_model->addObserver(*this);
    m_updatesSuspended = false;
    rebuildList();
}

void ListView::modelChanged(const ListModelGenericInterface::ChangeInfo_s& change)
{
    // A view hears of changes only while it observes a model; anything else has nothing to show.
    if (m_model == nullptr || m_updatesSuspended)
        return;
    switch (change.type)
    {
    case ListModelGenericInterface::ChangeInfo_s::ItemsAdded:
        addItems(change.indices);
        break;
    case ListModelGenericInterface::ChangeInfo_s::ItemsDeleted:
        deleteItems(change.indices);
        break;
    case ListModelGenericInterface::ChangeInfo_s::ItemsUpdated:
        updateItems(change.indices);
        break;
    case ListModelGenericInterface::ChangeInfo_s::ModelReset:
        rebuildList();
        break;
    default:
        break;
    }
}

bool ListView::hasControl() const
{
    return m_guiId != GuiId_None;
}

void ListView::rebuildList()
{
    if (!hasControl() || m_model == nullptr || m_updatesSuspended)
        return;
    HostLock lock;
    const unsigned long count = m_model->size();
    if (count == 0)
    {
        displayEmptyModelMessage();
        return;
    }
    VtxGUISetSensitivity(m_guiId, TRUE);
    std::vector<unsigned long> selected;
    m_selectionModel->getSelectedItems(selected);
    VtxGUIListDeleteAllItems(m_guiId);
    for (unsigned long index = 0; index < count; ++index)
        appendLine(index);
    // Indices past the new end are dropped there.
    m_selectionModel->setSelectedItems(selected);
}

void ListView::displayEmptyModelMessage()
{
    if (!hasControl())
        return;
    HostLock lock;
    VtxGUIListDeleteAllItems(m_guiId);
    VtxGUIListAppendItem(m_guiId, m_model->emptyModelMessage().c_str());
    // The message is not an item the user could select.
    VtxGUISetSensitivity(m_guiId, FALSE);
}

void ListView::addItems(const std::vector<unsigned long>& indices)
{
    if (!hasControl())
        return;
    HostLock lock;
    // Every item is new, the first one of a model that showed its empty-model message among them.
    if (indices.size() == m_model->size())
    {
        rebuildList();
        return;
    }
    const auto lines = static_cast<unsigned long>(std::max(0, VtxGUIListGetItemCount(m_guiId)));
    const bool insertsBeforeEnd =
        std::any_of(indices.begin(), indices.end(), [lines](unsigned long index) { return index < lines; });
    if (insertsBeforeEnd)
    {
        rebuildList();
        return;
    }
    // Appending moves no line, so the selection stays as it is.
    for (const unsigned long index : indices)
        appendLine(index);
}

void ListView::deleteItems(const std::vector<unsigned long>& indices)
{
    if (!hasControl())
        return;
    if (m_model->size() == 0)
    {
        displayEmptyModelMessage();
        return;
    }
    HostLock lock;
    std::vector<unsigned long> selected;
    m_selectionModel->getSelectedItems(selected);
    // From the highest position down, so that no deletion shifts a line still to be deleted.
    std::vector<unsigned long> deleted(indices);
    std::sort(deleted.begin(), deleted.end());
    for (auto index = deleted.rbegin(); index != deleted.rend(); ++index)
        VtxGUIListDeleteItemAtPos(m_guiId, Position(*index));
    // The indices selected before, as they were: those past the new end are dropped there.
    m_selectionModel->setSelectedItems(selected);
}

void ListView::updateItems(const std::vector<unsigned long>& indices)
{
    if (!hasControl())
        return;
    HostLock lock;
    std::vector<unsigned long> selected;
    m_selectionModel->getSelectedItems(selected);
    for (const unsigned long index : indices)
        VtxGUIListReplaceItem(m_guiId, m_model->displayString(index).c_str(), Position(index));
    m_selectionModel->setSelectedItems(selected);
}

void ListView::appendLine(unsigned long index)
{
    VtxGUIListAppendItem(m_guiId, m_model->displayString(index).c_str());
}

} // namespace vantix::vtxutiltools
