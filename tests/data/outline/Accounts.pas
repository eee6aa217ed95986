unit Accounts;

interface

type
  TMoney = Currency;
  TAccountNo = string[12];

  EAccount = class(Exception)
    Number: TAccountNo;
  end;

  EOverdrawn = class(EAccount)
  end;

  TAccount = class
  private
    FBalance: TMoney;
    FNumber: TAccountNo;
  public
    constructor Open(const Number: TAccountNo);
    procedure Deposit(Amount: TMoney);
    procedure Withdraw(Amount: TMoney);
    property Balance: TMoney read FBalance;
  end;

resourcestring
  SOverdrawn = 'Account %s is overdrawn';

threadvar
  LastAccount: TAccount;

procedure Transfer(From, Into: TAccount; Amount: TMoney);

implementation

uses SysUtils, Journal;

constructor TAccount.Open(const Number: TAccountNo);
begin
  inherited Create;
  FNumber := Number;
end;

procedure TAccount.Deposit(Amount: TMoney);
begin
  FBalance := FBalance + Amount;
  LastAccount := Self;
end;

procedure TAccount.Withdraw(Amount: TMoney);
begin
  if Amount > FBalance then
    raise EOverdrawn.CreateFmt(SOverdrawn, [FNumber]);
  FBalance := FBalance - Amount;
end;

procedure Transfer(From, Into: TAccount; Amount: TMoney);
var
  Done: Boolean;
begin
  Done := False;
  try
    From.Withdraw(Amount);
    try
      Into.Deposit(Amount);
      Done := True;
    except
      on E: EOverdrawn do
        Log(E.Message);
      on EAccount do
      begin
        From.Deposit(Amount);
        raise;
      end;
    else
      From.Deposit(Amount);
      raise;
    end;
  finally
    if not Done then
      Log('not transferred');
  end;
end;

end.
