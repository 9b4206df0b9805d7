# Warnings are errors, on every compiler.
add_compile_options(-Wall -Wextra -Wconversion -Wshadow -Werror)
