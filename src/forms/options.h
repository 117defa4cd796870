// SPDX-License-Identifier: MIT
#pragma once

#include "data/settings_store.h"
#include "window/conversion_settings.h"

#include <span>
#include <string>

namespace tarvelint {

class Window;

/// The plain half of the options dialog (`frmOptions`): its boxes show what the settings store holds, never what its
/// window is set to. One serves the whole application.
class Options {
public:
    /// Fills the boxes from the store.
    explicit Options(SettingsStore& store);

    Window* parentForm = nullptr; ///< the window it was opened for

    std::string eqBox;
    std::string dateBox; ///< 1-based columns
    std::string timeBox;
    std::string parBox;
    std::string vpdBox;
    std::string timiBox; ///< rows
    std::string VPDlBox;
    std::string PARlBox;
    std::string blankBox;
    bool zeroBox = false;

    /// "Change current": everything but the missing-value number goes to `parentForm`, nothing to the store.
    /// @return False when a message has refused it: nothing is applied, and the dialog stays
    /// @throws CommandFailure for a number or an equation that cannot be used; nothing is applied
    [[nodiscard]] bool cmdApplyCur_Click();
    /// "Change all": everything goes to the store; the equation to all of `windows`, the date and time columns to
    /// `parentForm`.
    [[nodiscard]] bool cmdApplyAll_Click(std::span<Window* const> windows);

private:
    struct Numbers {
        std::int16_t date = 0;
        std::int16_t time = 0;
        ZeroFlowSettings zeroFlow;
    };
    /// False after the message about a missing-value number that is none.
    [[nodiscard]] bool blankIsNumeric() const;
    [[nodiscard]] Numbers readNumbers() const;
    /// Repaired, into its box and the window it was opened for.
    void applyEquation();
    void store() const;

    SettingsStore& m_store;
};

} // namespace tarvelint
