// The creatable classes of Wendrill23.dll.

#include "com/classes/batch_object.h"
#include "com/classes/encode_utils_object.h"
#include "com/classes/interface_classes.h"
#include "com/classes/library.h"
#include "com/classes/pnr_object.h"
#include "com/classes/queue_object.h"
#include "com/classes/quillet_object.h"
#include "com/server/module.h"
#include "wendrill23_classes.h"
#include "wendrill23_dispatch.h"

namespace wendrill::com {
namespace {

constexpr ServerClass kClasses[] = {
    {kCQuillet, CreateObjectOf<CQuilletObject>},
    {kCPNR, CreateObjectOf<CPNRObject>},
    {kCQueue, CreateObjectOf<CQueueObject>},
    {kCBatch, CreateObjectOf<CBatchObject>},
    {kCEncodeUtils, CreateObjectOf<CEncodeUtilsObject>},
    {kIGet, CreateObjectOf<IGetObject>},
    {kIGetPNR, CreateObjectOf<IGetPNRObject>},
};

}  // namespace

const ServerDescription kServer{.typeLibrary = LIBID_Wendrill23,
                                .classes = kClasses,
                                .lastObjectGone = DropLibrary,
                                .ownWords = kSurrogate,
                                .surrogate = L"{C13B1111-EAED-474B-855B-508ADF882B28}"};

}  // namespace wendrill::com
