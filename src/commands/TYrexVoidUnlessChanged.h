#pragma once

/// A command of the family TBase that is void when its do step changed nothing, so that nothing is left to undo.
/// Derived classes call noteChange where they change something.
template <class TBase>
class TYrexVoidUnlessChanged : public TBase
{
public:
    using TBase::TBase;

    void doCmd() override
    {
        fChanged = false;
        TBase::doCmd();
        this->setVoidFlag(!fChanged);
    }

protected:
    void noteChange() { fChanged = true; }

private:
    bool fChanged = false;
};
