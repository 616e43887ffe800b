# What is shipped is hardened against faults that input could reach. Include it behind target.cmake.
set(optimized "$<CONFIG:Release,RelWithDebInfo,MinSizeRel>")
if(UNIX AND NOT VARNO_SANITIZE)
    target_compile_options(
        varno_strict INTERFACE
        $<${optimized}:-fPIE;-fstack-protector-strong;-fstack-clash-protection;-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>
    )
    target_link_options(varno_strict INTERFACE $<${optimized}:-pie;LINKER:-z,relro,-z,now>)
endif()
