// The creatable classes of Wendrill23.dll.

#include "com/classes/batch_object.h"
#include "com/classes/encode_utils_object.h"
#include "com/classes/interface_classes.h"
#include "com/classes/library.h"
#include "com/classes/pnr_object.h"
#include "com/classes/queue_object.h"
#include "com/classes/quillet_object.h"
#include "com/server/module.h"

namespace wendrill::com {
namespace {

constexpr ServerClass kClasses[] = {
    {CLSID_CQuillet, L"Wendrill23.CQuillet", L"Running terminal session", CreateObjectOf<CQuilletObject>},
    {CLSID_CPNR, L"Wendrill23.CPNR", L"PNR retrieved last", CreateObjectOf<CPNRObject>},
    {CLSID_CQueue, L"Wendrill23.CQueue", L"Queue of host entries", CreateObjectOf<CQueueObject>},
    {CLSID_CBatch, L"Wendrill23.CBatch", L"Batches of host entries", CreateObjectOf<CBatchObject>},
    {CLSID_CEncodeUtils, L"Wendrill23.CEncodeUtils", L"Host connection", CreateObjectOf<CEncodeUtilsObject>},
    {CLSID_IGet, L"Wendrill23.IGet", L"Interface of PNR records", CreateObjectOf<IGetObject>},
    {CLSID_IGetPNR, L"Wendrill23.IGetPNR", L"Interface of PNR elements", CreateObjectOf<IGetPNRObject>},
};

}  // namespace

const ServerDescription kServer{LIBID_Wendrill23, kClasses, DropLibrary};

}  // namespace wendrill::com
