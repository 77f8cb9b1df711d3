// Classes of a host that have the names of those inside the libraries.

class JSON {
public:
    bool isObject() const noexcept;
    bool isArray() const noexcept;
};

bool JSON::isObject() const noexcept { return false; }

bool JSON::isArray() const noexcept { return false; }

class ExceptionFactory {
public:
    virtual ~ExceptionFactory();
};

ExceptionFactory::~ExceptionFactory() = default;
