#include "tests/support/report_view.h"

#include <cstring>

#include "frame/session_table.h"
#include "output/saved_report.h"
#include "tests/support/preview_run.h"

ReportView::ReportView() : run(FiveAPage{}) {
    std::vector<Record> records;
    for (int record = 0; record < 12; ++record)
        records.push_back({{"NAME", "record " + std::to_string(record)}});
    EXPECT_EQ(run.Run(records), 0) << boxes.LastText();
    std::strcpy(block.ReportFileName, run.params.OutputFile);
    std::strcpy(block.TempDir, run.params.TempDir);
    block.Device = 'P';
    block.ParentWindow = host.Get();
}

ReportView::~ReportView() { DeleteMetaFile(page); }

bool ReportView::Show(int wanted, HGLOBAL devNames, HGLOBAL devMode) {
    number = wanted;
    DeleteMetaFile(page);
    page = tessarine::RepView(&block, &number, devNames, devMode);
    return page != nullptr;
}

ViewingSession::ViewingSession(const RepViewParams &block, std::function<void(Session *)> look)
    : call_("GetMetaFileA", Read) {
    block_ = &block;
    look_ = std::move(look);
}

HMETAFILE WINAPI ViewingSession::Read(LPCSTR path) {
    Session *session = tessarine::GetSessionPointer(nullptr, static_cast<int>(block_->SessionId));
    if (session) look_(session);
    const std::string bytes = ReadWholeFile(path);
    return SetMetaFileBitsEx(static_cast<UINT>(bytes.size()),
                             reinterpret_cast<const BYTE *>(bytes.data()));
}
