#include "app/NestrixMain.h"

bool CNestrixApp::OnInit() {
    auto* pFrame = new CNestrixFrame("Nestrix using GA");
    pFrame->Show(true);
    pFrame->Initialize();
    return true;
}
