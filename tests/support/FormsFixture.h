#pragma once

#include "StartupFixture.h"

namespace sidekin::test {

// A fresh program with its forms unmade and their events wired as at start-up:
// frmORQ and CPLinks come into being at their first touch.
class FormsFixture : public StartupFixture {
public:
    // Forgets both forms and the item feed, and the wiring with them.
    static void unloadForms();

protected:
    void SetUp() override;
    void TearDown() override;
};

}  // namespace sidekin::test
