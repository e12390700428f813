#include "cli/Records.h"

#include <cstdio>

#include "cli/Context.h"
#include "cli/Output.h"
#include "store/Recordset.h"

namespace ringbook::cli {

std::vector<int32_t> AllIds(const std::string& query, const std::string& key) {
  std::shared_ptr<Database> db = Database::Open(Context::Get().DatabasePath());
  std::shared_ptr<Recordset> rows = db->OpenRecordset(query);
  std::vector<int32_t> ids;
  if (rows->RecordCount() > 0) {
    for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext())
      ids.push_back(rows->Field(key).ToLong());
  }
  rows->Close();
  db->Close();
  return ids;
}

void ReportChange(const std::string& verb, const std::string& word, const Json& record,
                  int32_t id) {
  if (Context::Get().Json()) {
    PrintJson(record);
  } else {
    std::printf("%s %s %d\n", verb.c_str(), word.c_str(), static_cast<int>(id));
  }
}

}  // namespace ringbook::cli
