// For the thread sanitizer only. Qt's event queue is locked by means that the sanitizer does not see, so
// everything that a queued call carries to another thread would be reported. This shows it the order: what
// happened before QMetaObject::invokeMethod() happened before the call.

#include <QObject>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

namespace
{

/// Stands for the slot object of a call.
class OrderedCall : public QtPrivate::QSlotObjectBase
{
public:
    explicit OrderedCall(QSlotObjectBase *call)
        : QSlotObjectBase(&OrderedCall::perform)
        , m_call(call)
    {
        __tsan_release(this);
    }

private:
    static void perform(int operation, QSlotObjectBase *self, QObject *receiver, void **arguments, bool *)
    {
        __tsan_acquire(self);
        auto *const ordered = static_cast<OrderedCall *>(self);
        if (operation == Call) {
            ordered->m_call->call(receiver, arguments);
            __tsan_release(self); // either thread may destroy it
        } else if (operation == Destroy) {
            ordered->m_call->destroyIfLastRef();
            delete ordered;
        }
    }

    QSlotObjectBase *const m_call;
};

} // namespace

/// In place of Qt's own, which all forms of invokeMethod() with a function call.
bool QMetaObject::invokeMethodImpl(QObject *object, QtPrivate::QSlotObjectBase *slot, Qt::ConnectionType type,
                                   void *result)
{
    static const auto original = reinterpret_cast<decltype(&QMetaObject::invokeMethodImpl)>(dlsym(
        RTLD_NEXT,
        "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionTypeEPv"));
    return original(object, new OrderedCall(slot), type, result);
}
