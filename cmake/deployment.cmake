# Values that differ from one deployment to the next. They are fixed at build time:
#   cmake --preset release -DSSQ_RESULTS_HOST=http://results.my-site.cn ...
set(SSQ_PRODUCT_NAME "双色球分析工作台" CACHE STRING "Product name shown in the window title")
# The gateway's address is where the program looks for pages unless a deployment has sites.
set(SSQ_GATEWAY_PORT 8615)
set(SSQ_GATEWAY_HOST "http://127.0.0.1:${SSQ_GATEWAY_PORT}")
set(SSQ_RESULTS_HOST "${SSQ_GATEWAY_HOST}" CACHE STRING
    "Scheme and host of the results site (draw list and prize notices)")
set(SSQ_ORDER_HOST "${SSQ_GATEWAY_HOST}" CACHE STRING
    "Scheme and host of the service that tells the drawn order")
set(SSQ_SALES_HOST "${SSQ_GATEWAY_HOST}" CACHE STRING
    "Scheme and host of the online ticket sales site")
set(SSQ_SOURCE_URL "" CACHE STRING
    "A JSON service of draw notices that the gateway merges into its file; empty for none")
set(SSQ_PARTNER_HOST "http://partner.example.invalid" CACHE STRING
    "Scheme and host of the partner site behind the button that buys tickets")
set(SSQ_PARTNER_COOPID "0" CACHE STRING "Value of the key coopid on the partner site")
set(SSQ_PARTNER_ADID "0" CACHE STRING "Value of the key adid on the partner site")
set(SSQ_MAKER_SITE "http://www.example.invalid" CACHE STRING "The maker's web site")
set(SSQ_PRODUCT_PAGE "http://www.example.invalid/ssq" CACHE STRING
    "The page of this product on the maker's site")
set(SSQ_FORMULA_GUIDE "http://www.example.invalid/ssq/formulas" CACHE STRING
    "The online document on writing formulas")
set(SSQ_MAKER_SITE_CAPTION " 官方网站首页" CACHE STRING
    "Caption of the last entry of the menu bar, which opens the product page")
set(SSQ_CONTACT_LINK "http://www.example.invalid/contact" CACHE STRING
    "The maker's chat contact link")
set(SSQ_PACKAGE_NAME "ssq" CACHE STRING "Name of the Debian package, ASCII")
set(SSQ_MAINTAINER "The maintainers <maintainers@example.invalid>" CACHE STRING
    "Whom the package names for questions")
set(SSQ_APP_ID "invalid.example.ssq" CACHE STRING
    "Name of the program among all programs: a reversed domain and its name there")
set(SSQ_RELEASE_DATE "2026-11-23" CACHE STRING "Day of the release in the package's records")

configure_file(${CMAKE_SOURCE_DIR}/cmake/Deployment.cpp.in
               ${CMAKE_BINARY_DIR}/generated/Deployment.cpp @ONLY)
