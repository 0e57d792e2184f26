#include "corvex/common/error.h"
#include "corvex/platform/form_window.h"

namespace corvex {

namespace {

class NoFormWindows : public FormWindowService {
public:
    std::unique_ptr<FormWindow> createFormWindow(const FormWindowSpec& spec) override {
        throw Error(err::InvalidProcedureCall,
                    u"This host shows no windows of its own: " + spec.name + u" cannot be shown");
    }
};

}  // namespace

FormWindowService& noFormWindows() {
    static NoFormWindows service;
    return service;
}

}  // namespace corvex
