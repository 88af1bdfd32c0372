add_compile_options(-Wall -Wextra -Wpedantic -Werror)
# g++ 12 warns of overlapping copies inside its own std::string (GCC bug 105651).
add_compile_options($<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wno-restrict>)

option(SSQ_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
if(SSQ_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
