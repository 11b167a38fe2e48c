// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adapters/aax/sdk/AAX_CObject.h"

/** A view that is made when it gets its container, and goes with it. */
class AAX_CEffectGUI : public AAX_CObject<AAX_IEffectGUI>
{
public:
    AAX_Result SetViewContainer (AAX_IViewContainer* container) override
    {
        if (viewContainer != nullptr)
            DeleteViewContainer();

        viewContainer = container;

        if (container == nullptr)
            return AAX_SUCCESS;

        CreateViewContents();
        return CreateViewContainer();
    }

    AAX_IViewContainer* GetViewContainer() const noexcept { return viewContainer; }

protected:
    virtual void CreateViewContents() = 0;
    virtual void DeleteViewContainer() = 0;

    /** Shows the contents in the container. */
    virtual AAX_Result CreateViewContainer() { return viewContainer != nullptr ? AAX_SUCCESS : AAX_ERROR_NULL_OBJECT; }

private:
    AAX_IViewContainer* viewContainer = nullptr;   // while the view is open
};
