#include <quillmarker/widgets/platform_services.h>

#include <QCoreApplication>

namespace quillmarker
{
namespace
{

class QtPendingEvents : public PendingEventService
{
public:
    void Process() override { QCoreApplication::processEvents(); }
};

}  // namespace

std::unique_ptr<PendingEventService> MakeQtPendingEvents() { return std::make_unique<QtPendingEvents>(); }

}  // namespace quillmarker
