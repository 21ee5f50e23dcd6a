# Flags that hold for every target.

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion)
if(MARROWCUT_WARNINGS_AS_ERRORS)
    add_compile_options(-Werror)
endif()

# Position-independent in libraries and programs alike, so that they share precompiled headers.
add_compile_options(-fPIC)

# foreach and emit as macros would break in headers of other libraries; implicit
# conversions from char* hide the encoding of a text.
add_compile_definitions(QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH)

if(MARROWCUT_SANITIZERS)
    add_compile_options(-fsanitize=${MARROWCUT_SANITIZERS} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${MARROWCUT_SANITIZERS})
endif()
